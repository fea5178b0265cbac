#include "app/commands/ImportQueue.h"

#include "app/services/Playback.h"
#include "app/services/RecentFiles.h"
#include "base/ErrorText.h"
#include "ui/Dialogs.h"

#include <QApplication>
#include <QTimer>

ImportQueue::ImportQueue(const CommandContext &context) : context_(context), reading_(context.settings)
{
    connect(&reading_, &SongImport::imported, this, &ImportQueue::add);
}

void ImportQueue::open()
{
    isOpen_ = true;
    take();
}

void ImportQueue::load(const ImportRequest &request)
{
    if (!request.sources.isEmpty())
        reading_.start(request);
}

void ImportQueue::add(const ImportRequest &request, const ReadSong &song)
{
    waiting_.append({request, song});
    take();
}

ExistingTracks ImportQueue::askAboutExisting(const QString &title) const
{
    const auto question = QStringLiteral("Would you like to remove the existing tracks first?");
    const bool removes =
        !context_.tracks.isEmpty() && context_.dialogs.ask(&context_.window, title, question) == Dialogs::Answer::Yes;
    return removes ? ExistingTracks::Remove : ExistingTracks::Keep;
}

void ImportQueue::take()
{
    if (!isOpen_ || waiting_.isEmpty())
        return;
    if (QApplication::activeModalWidget()) {
        QTimer::singleShot(50, this, qOverload<>(&ImportQueue::take));
        return;
    }
    const auto [request, song] = waiting_.takeFirst();
    try {
        take(request, song);
    } catch (...) {
        const auto text = song.readFiles.join(QStringLiteral(", ")) + QStringLiteral(": ") + currentErrorText();
        context_.dialogs.message(&context_.window, Dialogs::Severity::Critical, request.step, text);
    }
    take();
}

void ImportQueue::take(const ImportRequest &request, const ReadSong &song)
{
    QVector<NewTrack> added;
    for (const auto &track : song.tracks)
        added.append({track, context_.playback.instrumentNameFor(track)});
    const bool isRead = !added.isEmpty(); // else nothing is removed either
    if (song.tracks.size() == 1 && !request.replaced.isEmpty()) {
        for (const auto &id : request.replaced)
            context_.tracks.setTrack(request.step, id, song.tracks.first());
        for (const auto &id : request.replaced)
            context_.tracks.markSaved(id, song.tracks.first().filePath());
        return;
    }
    context_.tracks.add(request.step, added, isRead ? request.existing : ExistingTracks::Keep);
    for (const auto &file : song.readFiles)
        RecentFiles::add(context_.settings, file);
    for (const auto &error : song.errors)
        context_.dialogs.message(&context_.window, Dialogs::Severity::Critical, error.title, error.text);
}
