#include "app/recovery/SongRecovery.h"

#include "app/recovery/SessionJournal.h"
#include "base/FileState.h"
#include "song/SongParts.h"
#include "ui/Dialogs.h"

#include <QFileInfo>
#include <QWidget>

#include <algorithm>

namespace {

using Occasion = RecoveryDialog::Occasion;

Track shownTrack(const SongPart &part, const std::stop_token &stop)
{
    try {
        auto track = SongParts::trackOf(part, stop);
        track.toAbc();
        return track;
    } catch (const QString &) {
        return SongParts::silentTrackOf(part); // its text is there all the same
    }
}

OpenedSong readJournal(const QString &journal, const std::stop_token &stop)
{
    const auto kept = JournalFolder::recover(journal);
    OpenedSong opened{kept.song, {}, {}, kept.file, OpenedSong::Origin::Recovered, kept.fileStamp};
    for (const auto &part : kept.song.parts) {
        opened.tracks.append(shownTrack(part, stop));
        if (!part.path.isEmpty() && holdsText(part.path, part.abc))
            opened.inFiles.insert(part.id);
    }
    return opened;
}

// What could not be deleted is said; the others are gone.
QString removeJournals(const QStringList &journals)
{
    QStringList problems;
    for (const auto &journal : journals) {
        try {
            JournalFolder::remove(journal);
        } catch (const QString &problem) {
            problems.append(problem);
        }
    }
    problems.removeDuplicates();
    return problems.join(u'\n');
}

QVector<RecoverableSong> songsFor(Occasion occasion, QVector<RecoverableSong> songs)
{
    if (occasion == Occasion::Start)
        songs.erase(std::remove_if(songs.begin(), songs.end(), [](const auto &song) { return song.isDiscarded; }),
                    songs.end());
    return songs;
}

} // namespace

SongRecovery::SongRecovery(const CommandContext &context, SessionJournal &journal, const QString &folder,
                           LeaveFor leaveFor)
    : context_(context), journal_(journal), folder_(folder), leaveFor_(std::move(leaveFor))
{
}

QVector<ActionRow> SongRecovery::actions()
{
    return {{"actionRecover", tr("Recover..."), "", tr("Bring back a song that was not saved or was discarded"), "",
             "onRecover()"}};
}

void SongRecovery::offerAtStart()
{
    if (!folder_.isEmpty())
        look(Occasion::Start);
}

void SongRecovery::open()
{
    look(Occasion::Command);
}

void SongRecovery::restore(const QString &journal, const std::function<void()> &otherwise)
{
    const auto read = [=, folder = folder_](const TaskControl &control) {
        if (QFileInfo(journal).path() != folder || !JournalFolder::isLeft(journal))
            throw QStringLiteral("%1 is no journal that was left").arg(journal);
        return readJournal(journal, control.stop());
    };
    const auto giveUp = [=](const QString &error) {
        qWarning("%s", qUtf8Printable(error));
        otherwise();
    };
    task_.start(
        read, [=, this](const OpenedSong &song) { journal_.openRecovered(song, journal); }, giveUp);
}

void SongRecovery::look(Occasion occasion)
{
    const auto list = [folder = folder_](const TaskControl &) {
        return folder.isEmpty() ? QVector<RecoverableSong>() : JournalFolder::recoverable(folder);
    };
    const auto take = [=, this](const QVector<RecoverableSong> &songs) { show(occasion, songsFor(occasion, songs)); };
    task_.start(list, take, [this](const QString &error) { fail(error); });
}

void SongRecovery::show(Occasion occasion, const QVector<RecoverableSong> &songs)
{
    if (songs.isEmpty()) {
        if (dialog_)
            dialog_->reject();
        else if (occasion == Occasion::Command)
            context_.dialogs.message(&context_.window, Dialogs::Severity::Information, tr("Recover Songs"),
                                     tr("There is no song to recover."));
        return;
    }
    if (!dialog_) {
        dialog_ = new RecoveryDialog(occasion, &context_.window);
        dialog_->setAttribute(Qt::WA_DeleteOnClose);
        connect(dialog_, &RecoveryDialog::recoverRequested, this, &SongRecovery::recover);
        connect(dialog_, &RecoveryDialog::removeRequested, this,
                [=, this](const QStringList &journals) { remove(occasion, journals); });
        dialog_->open();
    }
    dialog_->setSongs(songs);
    dialog_->setEnabled(true);
}

void SongRecovery::recover(const QString &journal)
{
    leaveFor_([=, this] { read(journal); });
}

void SongRecovery::read(const QString &journal)
{
    if (dialog_)
        dialog_->setEnabled(false);
    const auto read = [journal](const TaskControl &control) { return readJournal(journal, control.stop()); };
    const auto take = [=, this](const OpenedSong &song) {
        journal_.openRecovered(song, journal);
        if (dialog_)
            dialog_->accept();
    };
    task_.start(read, take, [this](const QString &error) { fail(error); });
}

void SongRecovery::remove(Occasion occasion, const QStringList &journals)
{
    const auto question =
        tr("%n song(s) will be gone for good.\nWould you like to delete them?", nullptr, int(journals.size()));
    if (context_.dialogs.ask(dialog_, tr("Recover Songs"), question) != Dialogs::Answer::Yes)
        return;
    dialog_->setEnabled(false);
    const auto take = [=, this](const QString &problem) {
        if (!problem.isEmpty())
            fail(problem);
        look(occasion);
    };
    task_.start([journals](const TaskControl &) { return removeJournals(journals); }, take,
                [this](const QString &error) { fail(error); });
}

void SongRecovery::fail(const QString &error)
{
    if (dialog_)
        dialog_->setEnabled(true);
    context_.dialogs.message(&context_.window, Dialogs::Severity::Critical, tr("Recover Songs"), error);
}
