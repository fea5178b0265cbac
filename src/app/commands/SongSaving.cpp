#include "app/commands/SongSaving.h"

#include "app/services/RecentFiles.h"
#include "app/services/SongSession.h"
#include "base/FileState.h"
#include "base/SafeFile.h"
#include "settings/Settings.h"
#include "song/SongFile.h"
#include "ui/Dialogs.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>

namespace {

const QString programName = QStringLiteral("Kelvarion Composer");

// The texts as Unicode, as JSON and as its bytes.
std::size_t bytesToSave(const Song &song)
{
    std::size_t characters = 0;
    for (const auto &part : song.parts)
        characters += std::size_t(part.abc.size() + part.draft.value_or(QString()).size());
    return 8 * characters;
}

// Why the user is to be asked before the file is replaced; empty when he need not be.
QString objectionTo(const QString &path, const std::optional<QString> &knownStamp)
{
    if (knownStamp && QFileInfo::exists(path) && stampOf(path) != *knownStamp)
        return knownStamp->isEmpty() ? SongSaving::tr("'%1' may hold another version of this song.").arg(path)
                                     : SongSaving::tr("'%1' was changed by another program.").arg(path);
    switch (protectionOf(path)) {
    case FileProtection::ReadOnly:
        return SongSaving::tr("'%1' is read-only.").arg(path);
    case FileProtection::OfAnotherUser:
        return SongSaving::tr("'%1' belongs to another user.").arg(path);
    case FileProtection::None:
        break;
    }
    return {};
}

// Gives the stamp of the file.
QString writeSong(const Song &song, const QString &path)
{
    SafeFile::write(path, SongFile::toBytes(song, QFileInfo(path).absolutePath()));
    return stampOf(path);
}

} // namespace

void SongSaving::save(const Then &then)
{
    start({Where::InItsFile, then});
}

void SongSaving::saveAs(const Then &then)
{
    start({Where::AsChosen, then});
}

void SongSaving::start(const Job &job)
{
    jobs_.enqueue(job);
    if (jobs_.size() == 1)
        begin();
}

void SongSaving::begin()
{
    const auto own = context_.session.file();
    const auto path = jobs_.head().where == Where::InItsFile && !own.isEmpty() ? own : chosenPath();
    if (path.isEmpty())
        finish(false);
    else
        consider(path);
}

void SongSaving::finish(bool isSaved)
{
    const auto job = jobs_.dequeue();
    if (!jobs_.isEmpty())
        begin();
    if (job.then)
        job.then(isSaved);
    if (jobs_.isEmpty())
        emit idle();
}

QString SongSaving::chosenPath()
{
    const auto own = context_.session.file();
    const auto last = context_.settings.value(Settings::AbcSaveDir).toString();
    const auto folder = own.isEmpty() ? (last.isEmpty() ? QDir::homePath() : last) : QFileInfo(own).path();
    const auto proposed = QStringLiteral("%1/%2.kvsong").arg(folder, SafeFile::cleanName(context_.session.name()));
    const auto path = context_.dialogs.saveFile(&context_.window, tr("Save Song As"), proposed, tr("Songs (*.kvsong)"));
    return path.isEmpty() ? QString() : QDir::cleanPath(QFileInfo(path).absoluteFilePath());
}

void SongSaving::consider(const QString &path)
{
    std::optional<QString> known;
    if (path == context_.session.file())
        known = context_.session.fileStamp();
    if (known && context_.session.hasReplacedAllParts())
        return decide(path, tr("None of the parts that '%1' holds is in this song any more.").arg(path));
    const auto tell = [=, this](const QString &objection) {
        if (objection.isEmpty())
            write(path);
        else
            decide(path, objection);
    };
    task_.start([=](const TaskControl &) { return objectionTo(path, known); }, tell,
                [this](const QString &) { finish(false); });
}

void SongSaving::decide(const QString &path, const QString &objection)
{
    const auto question = objection + u'\n' + tr("Would you like to overwrite it?");
    switch (context_.dialogs.askToOverwrite(&context_.window, programName, question)) {
    case Dialogs::OverwriteAnswer::Overwrite:
        return write(path);
    case Dialogs::OverwriteAnswer::SaveAs:
        jobs_.head().where = Where::AsChosen;
        return begin();
    case Dialogs::OverwriteAnswer::Cancel:
        return finish(false);
    }
}

void SongSaving::write(const QString &path)
{
    const auto song = context_.session.songToSave();
    const auto done = [=, this](const QString &stamp) {
        context_.session.markSaved(song, path, stamp);
        RecentFiles::add(context_.settings, {path});
        emit saved({path});
        finish(true);
    };
    const auto failed = [=, this](const QString &reason) {
        qWarning("%s: %s", qUtf8Printable(path), qUtf8Printable(reason));
        context_.dialogs.message(&context_.window, Dialogs::Severity::Warning, programName,
                                 tr("Could not save the song.\n%1: %2").arg(path, reason));
        finish(false);
    };
    emit saving(path);
    task_.start([=](const TaskControl &) { return writeSong(song, path); }, done, failed, bytesToSave(song));
}
