#include "app/commands/SaveCommands.h"

#include "app/services/RecentFiles.h"
#include "app/services/SongSession.h"
#include "base/FileState.h"
#include "base/SafeFile.h"
#include "settings/LastFolder.h"
#include "ui/Dialogs.h"
#include "ui/tracks/TrackList.h"

#include <QCoreApplication>
#include <QFileInfo>
#include <QWidget>

namespace {

const QString programName = QStringLiteral("Kelvarion Composer");

QString shownTitle(const Track &track)
{
    const auto title = track.title();
    return title.isEmpty() ? SaveCommands::tr("Untitled") : title;
}

QString textOf(const Track &track)
{
    auto copy = track; // making the text may complete the header; a save changes nothing
    return copy.toAbc();
}

// What a file on the way is looked at with.
struct Found
{
    QString path;
    std::optional<QString> expected; // of the track's own file
};

// Why the user is to be asked before the file is replaced; empty when he need not be.
QString objectionTo(const Found &found)
{
    if (found.expected && holdsAnotherText(found.path, *found.expected))
        return SaveCommands::tr("'%1' was changed by another program.").arg(found.path);
    switch (protectionOf(found.path)) {
    case FileProtection::ReadOnly:
        return SaveCommands::tr("'%1' is read-only.").arg(found.path);
    case FileProtection::OfAnotherUser:
        return SaveCommands::tr("'%1' belongs to another user.").arg(found.path);
    case FileProtection::None:
        break;
    }
    return {};
}

} // namespace

QVector<ActionRow> SaveCommands::actions()
{
    return {
        {"actionSave_Selected", tr("Save Selected"), "Ctrl+S", tr("Save the selected tracks to disk"), "save",
         "onSaveSelected()", Available::WithSelection},
        {"actionSave_All", tr("Save All"), "Ctrl+Shift+S", tr("Save all tracks to disk"), "saveall", "onSaveAll()",
         Available::WithTracks},
    };
}

void SaveCommands::saveSelected()
{
    save(context_.tracks.selectedIds());
}

void SaveCommands::saveAll()
{
    context_.session.takeEdits(context_.tracks.ids());
    QStringList changed;
    for (const auto &id : context_.tracks.ids()) {
        if (!isInItsFile(id))
            changed.append(id);
    }
    save(changed);
}

bool SaveCommands::isInItsFile(const QString &id) const
{
    return context_.tracks.isFiled(id) && QFileInfo::exists(context_.tracks.filePath(id));
}

void SaveCommands::save(const QStringList &ids, const Then &then)
{
    start({ids, Where::InItsFile, then});
}

void SaveCommands::saveAs(const QString &id)
{
    start({{id}, Where::AsChosen, {}});
}

void SaveCommands::start(const Job &job)
{
    context_.session.takeEdits(job.ids);
    jobs_.enqueue(job);
    if (jobs_.size() == 1)
        next();
}

void SaveCommands::next()
{
    auto &job = jobs_.head();
    if (job.ids.isEmpty())
        return finish();
    const auto id = job.ids.takeFirst();
    consider(id, job.where == Where::AsChosen ? chosenTarget(id) : targetOf(id));
}

// A dialog that is cancelled ends the command; a file that cannot be written does not.
void SaveCommands::giveUp()
{
    jobs_.head().ids.clear();
    jobs_.head().isComplete = false;
    finish();
}

void SaveCommands::finish()
{
    const auto job = jobs_.head();
    RecentFiles::add(context_.settings, job.written);
    if (!job.failures.isEmpty())
        context_.dialogs.message(&context_.window, Dialogs::Severity::Warning, programName,
                                 job.failures.join(QStringLiteral("\n\n")));
    jobs_.dequeue();
    if (!jobs_.isEmpty())
        next();
    if (!job.written.isEmpty())
        emit saved(job.written);
    if (job.then)
        job.then(job.isComplete);
    if (jobs_.isEmpty())
        emit idle();
}

std::optional<SaveCommands::Target> SaveCommands::targetOf(const QString &id)
{
    const auto path = context_.tracks.filePath(id);
    if (path.isEmpty())
        return chosenTarget(id);
    return Target{path, tr("Could not open '%1' for saving.").arg(path)};
}

std::optional<SaveCommands::Target> SaveCommands::chosenTarget(const QString &id)
{
    const auto *const track = context_.tracks.find(id);
    if (!track)
        return {};
    const auto title = shownTitle(*track->track);
    const auto proposed = proposedFile(context_.settings, Settings::AbcSaveDir, title, QStringLiteral(".abc"));
    const auto path = context_.dialogs.saveFile(&context_.window, tr("Save track '%1' as..").arg(title), proposed,
                                                tr("ABC Files (*.abc)"));
    if (path.isEmpty())
        return {};
    context_.settings.setValue(Settings::AbcSaveDir, QFileInfo(path).path());
    return Target{path, tr("Could not open the file for saving.")};
}

// What speaks against a target is told before it is written; nothing was chosen when the user cancelled.
void SaveCommands::consider(const QString &id, const std::optional<Target> &target)
{
    const auto *const track = context_.tracks.find(id);
    if (!target || !track)
        return giveUp();
    const auto rival = rivalOf(id, target->path);
    if (!rival.isEmpty())
        return decide(id, *target, rival);
    Found found{target->path, {}};
    if (target->path == context_.tracks.filePath(id))
        found.expected = context_.tracks.savedText(id).value_or(textOf(*track->track));
    const auto tell = [=, this](const QString &objection) {
        if (objection.isEmpty())
            write(id, *target);
        else
            decide(id, *target, objection);
    };
    task_.start([found](const TaskControl &) { return objectionTo(found); }, tell,
                [=, this](const QString &reason) { noteFailure(id, *target, reason); });
}

void SaveCommands::decide(const QString &id, const Target &target, const QString &objection)
{
    const auto question = objection + u'\n' + tr("Would you like to overwrite it?");
    switch (context_.dialogs.askToOverwrite(&context_.window, programName, question)) {
    case Dialogs::OverwriteAnswer::Overwrite:
        return write(id, target);
    case Dialogs::OverwriteAnswer::SaveAs:
        return consider(id, chosenTarget(id));
    case Dialogs::OverwriteAnswer::Cancel:
        return giveUp();
    }
}

QString SaveCommands::rivalOf(const QString &id, const QString &path) const
{
    const auto rivals = context_.tracks.rivalsFor(path, id);
    if (rivals.isEmpty())
        return {};
    return tr("'%1' is also the file of the track '%2', which would be lost from it.")
        .arg(path, shownTitle(*context_.tracks.find(rivals.first())->track));
}

void SaveCommands::write(const QString &id, const Target &target)
{
    const auto *const found = context_.tracks.find(id);
    if (!found)
        return giveUp();
    const auto track = found->track;
    const auto work = [track, path = target.path](const TaskControl &) {
        SafeFile::write(path, textOf(*track).toUtf8());
        return track;
    };
    emit saving(target.path);
    task_.start(
        work, [=, this](const std::shared_ptr<const Track> &written) { noteWritten(id, target.path, written); },
        [=, this](const QString &reason) { noteFailure(id, target, reason); }, std::size_t(4 * textOf(*track).size()));
}

void SaveCommands::noteWritten(const QString &id, const QString &path, const std::shared_ptr<const Track> &track)
{
    context_.tracks.markSaved(id, path, track);
    jobs_.head().written.append(path);
    next();
}

void SaveCommands::noteFailure(const QString &id, const Target &target, const QString &reason)
{
    qWarning("%s: %s", qUtf8Printable(target.path), qUtf8Printable(reason));
    jobs_.head().failures.append(QStringLiteral("%1\n%2: %3").arg(target.failure, target.path, reason));
    jobs_.head().isComplete = false;
    if (target.path != context_.tracks.filePath(id))
        context_.tracks.setFilePath(id, target.path);
    next();
}
