#include "app/commands/ImportQueue.h"

#include "app/services/Playback.h"
#include "app/services/RecentFiles.h"
#include "app/services/SongSession.h"
#include "base/ErrorText.h"
#include "settings/Settings.h"
#include "ui/Dialogs.h"
#include "ui/importing/ImportPreviewDialog.h"

#include <QApplication>
#include <QFileInfo>
#include <QTimer>

#include <algorithm>
#include <utility>

namespace {

constexpr int longestList = 20; // lines of a message

QString named(const QString &file, const QString &text)
{
    return file.isEmpty() ? text : QStringLiteral("%1: %2").arg(file, text);
}

// Short enough for one line of the box.
QString lineOf(const ReadingError &error)
{
    return named(QFileInfo(error.path).fileName(), error.text.section(u'\n', 0, 0));
}

QString listOf(const QVector<ReadingError> &errors)
{
    if (errors.size() == 1)
        return named(errors.first().path, errors.first().text);
    QStringList lines;
    for (const auto &error : errors.mid(0, longestList))
        lines.append(lineOf(error));
    if (const auto more = errors.size() - lines.size(); more > 0)
        lines.append(ImportQueue::tr("%n more could not be read.", nullptr, int(more)));
    return lines.join(u'\n');
}

QString commonTitle(const QVector<ReadingError> &errors)
{
    const auto &title = errors.first().title;
    const bool isCommon =
        std::all_of(errors.begin(), errors.end(), [&](const auto &error) { return error.title == title; });
    return isCommon ? title : ImportQueue::tr("Error while reading files");
}

} // namespace

ImportQueue::ImportQueue(const CommandContext &context, EngineFactory makeEngine)
    : context_(context), makeEngine_(std::move(makeEngine)), reading_(context.settings)
{
    connect(&reading_, &SongImport::imported, this, &ImportQueue::add);
    // Queued, since the last song comes after it.
    connect(&reading_, &SongImport::idle, this, &ImportQueue::showErrors, Qt::QueuedConnection);
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

void ImportQueue::askAndLoad(const QString &title, ImportRequest request)
{
    const auto question = QStringLiteral("Would you like to remove the existing tracks first?");
    if (!context_.tracks.isEmpty() && !request.sources.isEmpty()) {
        const auto answer = context_.dialogs.askOrCancel(&context_.window, title, question);
        if (!answer)
            return;
        request.existing = answer == Dialogs::Answer::Yes ? ExistingTracks::Remove : ExistingTracks::Keep;
    }
    load(request);
}

void ImportQueue::add(const ImportRequest &request, const ReadSong &song)
{
    waiting_.append({request, song});
    take();
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
        errors_.append({request.step, currentErrorText(), song.readFiles.join(QStringLiteral(", "))});
    }
    take();
    showErrors();
}

void ImportQueue::take(const ImportRequest &request, const ReadSong &song)
{
    const bool isChosenFrom = request.preview == ImportRequest::Preview::IfPreferred &&
                              context_.settings.value(Settings::ChooseParts).toBool();
    if (isChosenFrom && !song.tracks.isEmpty())
        return choose(request, song);
    errors_ += song.errors;
    if (song.tracks.isEmpty()) // then nothing is removed either
        return;
    if (song.tracks.size() == 1 && !request.replaced.isEmpty())
        return replace(request, song.tracks.first());
    addTracks(request, song);
}

void ImportQueue::choose(ImportRequest request, const ReadSong &song)
{
    auto &playback = context_.playback;
    const PreviewServices services{context_.settings, playback.instruments(), playback.resolvedName({}), makeEngine_};
    ImportPreviewDialog dialog(request.sources, song, reading_.optionsOf(request), services, &context_.window);
    connect(&dialog, &ImportPreviewDialog::aboutToListen, &playback, &Playback::stop);
    if (!context_.dialogs.run(dialog))
        return;
    const auto chosen = dialog.preview().song();
    errors_ += chosen.errors;
    request.options = dialog.preview().options();
    addTracks(request, chosen, dialog.preview().instruments());
}

// Without instruments of their own tracks get those of their headers, or the default.
void ImportQueue::addTracks(const ImportRequest &request, const ReadSong &song, const QStringList &instruments)
{
    QVector<NewTrack> tracks;
    for (int i = 0; i < song.tracks.size(); ++i)
        tracks.append(newTrack(song.tracks[i], song.songParts.value(i), instruments.value(i)));
    const auto ids = context_.tracks.add(request.step, tracks, request.existing);
    for (auto part = song.songParts.begin(); part != song.songParts.end(); ++part)
        context_.session.setDraft(ids.value(part.key()), part->draft);
    emit added(request, song, ids);
    RecentFiles::add(context_.settings, song.readFiles);
}

// A song's part has its mix; one that was not chosen an instrument has that of the part, or of its header.
NewTrack ImportQueue::newTrack(const Track &track, const SongPart &part, const QString &chosen) const
{
    auto instrument = chosen.isEmpty() ? part.instrument : chosen;
    if (instrument.isEmpty())
        instrument = context_.playback.instrumentNameFor(track);
    return {track, instrument, part.isMuted, part.volume, part.pan};
}

void ImportQueue::replace(const ImportRequest &request, const Track &track)
{
    for (const auto &id : request.replaced)
        context_.tracks.setTrack(request.step, id, track);
    for (const auto &id : request.replaced)
        context_.tracks.markSaved(id, track.filePath());
}

void ImportQueue::showErrors()
{
    if (isBusy() || errors_.isEmpty())
        return;
    const auto errors = std::exchange(errors_, {});
    context_.dialogs.message(&context_.window, Dialogs::Severity::Critical, commonTitle(errors), listOf(errors));
}
