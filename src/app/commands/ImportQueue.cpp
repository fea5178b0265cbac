#include "app/commands/ImportQueue.h"

#include "app/commands/ConvertedSources.h"
#include "app/services/Playback.h"
#include "app/services/RecentFiles.h"
#include "app/services/SongSession.h"
#include "base/ErrorText.h"
#include "settings/Settings.h"
#include "song/ChosenTunes.h"
#include "ui/Dialogs.h"
#include "ui/importing/ImportPreviewDialog.h"
#include "ui/report/TuneChooser.h"

#include <QApplication>
#include <QDir>
#include <QFileInfo>
#include <QSet>
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

QString cleanPath(const QString &path)
{
    return QDir::cleanPath(QFileInfo(path).absoluteFilePath());
}

bool canBeImportedAgain(const SongSource &source, bool isConverted)
{
    using Kind = SongSource::Kind;
    return source.kind == Kind::MidiFile || source.kind == Kind::TextFile || source.kind == Kind::MmlText ||
           ((source.kind == Kind::AbcFile || source.kind == Kind::AbcText) && isConverted);
}

SongImported importedFrom(const SongSource &source, const QJsonObject &settings)
{
    const bool isText = source.kind == SongSource::Kind::AbcText || source.kind == SongSource::Kind::MmlText;
    if (isText)
        return {{}, settings, {}, {}, source.content};
    return {cleanPath(source.content), settings, {}};
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
    const auto question = tr("Would you like to remove the existing tracks first?");
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

void ImportQueue::take(const ImportRequest &request, const ReadSong &asRead)
{
    if (!mayConvert(request, asRead))
        return;
    const auto chosen = request.tunes == ImportRequest::Tunes::Chosen ? chooseTunes(request, asRead) : asRead;
    if (!chosen)
        return;
    const auto &song = *chosen;
    if (isChosenFrom(request, song))
        return choose(request, song);
    errors_ += song.errors;
    if (song.tracks.isEmpty()) // then nothing is removed either
        return;
    if (song.tracks.size() == 1 && !request.replaced.isEmpty())
        return replace(request, song.tracks.first());
    if (!request.readAgain.isEmpty())
        return readAgain(request, song);
    addTracks(request, song);
}

bool ImportQueue::isChosenFrom(const ImportRequest &request, const ReadSong &song) const
{
    const auto isMidi = [](const SongSource &source) { return source.kind == SongSource::Kind::MidiFile; };
    const bool isForeign =
        !song.converted.isEmpty() || std::any_of(request.sources.begin(), request.sources.end(), isMidi);
    return isForeign && !song.tracks.isEmpty() && request.preview == ImportRequest::Preview::IfPreferred &&
           context_.settings.value(Settings::ChooseParts).toBool();
}

void ImportQueue::choose(ImportRequest request, const ReadSong &song)
{
    auto &playback = context_.playback;
    const PreviewServices services{context_.settings, playback.instruments(), playback.resolvedName({}), makeEngine_};
    auto options = reading_.optionsOf(request);
    if (song.converted.size() == request.sources.size()) // whatever the game would read otherwise
        options.abc = AbcDialect::Standard;
    ImportPreviewDialog dialog(request.sources, song, options, services, &context_.window);
    connect(&dialog, &ImportPreviewDialog::aboutToListen, &playback, &Playback::stop);
    if (!context_.dialogs.run(dialog))
        return;
    const auto chosen = dialog.preview().song();
    errors_ += chosen.errors;
    request.options = dialog.preview().options();
    addTracks(request, chosen, dialog.preview().instruments());
}

// Where it is not to be converted, it is read again as it is.
bool ImportQueue::mayConvert(const ImportRequest &request, const ReadSong &song)
{
    if (song.converted.isEmpty() || request.options || reading_.foreignAbc() != ForeignAbc::Ask)
        return true;
    const auto answer = context_.dialogs.askAboutForeign(&context_.window, request.step,
                                                         questionAbout(request.sources, song.converted));
    if (answer == Dialogs::ForeignAnswer::OpenAsItIs) {
        auto asItIs = request;
        asItIs.options = reading_.optionsOf(request);
        asItIs.options->abc = AbcDialect::Game;
        load(asItIs);
    }
    return answer == Dialogs::ForeignAnswer::Convert;
}

// Nothing when the user cancels.
std::optional<ReadSong> ImportQueue::chooseTunes(const ImportRequest &request, ReadSong song)
{
    const auto books = song.converted;
    for (const auto &book : books) {
        const auto tunes = tunesWithTracks(song, book.source);
        if (tunes.size() < 2)
            continue;
        QStringList names;
        for (const int tune : tunes)
            names.append(book.tunes[tune]);
        TuneChooser chooser(nameOf(request.sources.value(book.source)), names, &context_.window);
        if (!context_.dialogs.run(chooser))
            return {};
        QSet<int> chosen;
        for (const int row : chooser.chosen())
            chosen.insert(tunes[row]);
        keepTunes(song, book.source, chosen);
    }
    return song;
}

// Without instruments of their own tracks get those of their headers, or the default.
void ImportQueue::addTracks(const ImportRequest &request, const ReadSong &song, const QStringList &instruments)
{
    const auto imports = noteImports(request, song);
    QVector<NewTrack> tracks;
    for (int i = 0; i < song.tracks.size(); ++i) {
        tracks.append(newTrack(song.tracks[i], song.songParts.value(i), instruments.value(i)));
        tracks.last().import = imports.value(song.sources.value(i, -1));
    }
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

// Gives the ids of the imports by the numbers of their sources. What holds its track as it is was no import.
QHash<int, QString> ImportQueue::noteImports(const ImportRequest &request, const ReadSong &song)
{
    QHash<int, QString> imports;
    const auto settings = importSettings(reading_.optionsOf(request));
    QSet<int> converted;
    for (const auto &each : song.converted)
        converted.insert(each.source);
    for (const int number : song.sources) {
        const auto source = request.sources.value(number);
        if (!imports.contains(number) && canBeImportedAgain(source, converted.contains(number)))
            imports.insert(number, context_.session.addImport(importedFrom(source, settings)));
    }
    return imports;
}

// A part with the same name stays the same part, with its mix and its place; so do all when there are as many.
void ImportQueue::readAgain(const ImportRequest &request, const ReadSong &song)
{
    auto replaced = context_.session.partsOf(request.readAgain);
    QVector<NewTrack> tracks;
    for (const auto &track : song.tracks) {
        tracks.append(newTrack(track, {}, {}));
        tracks.last().import = request.readAgain;
    }
    const auto ids = replaced;
    for (auto &track : tracks) {
        const auto hasItsName = [&](const QString &id) {
            return context_.tracks.find(id)->track->title() == track.track.title();
        };
        const auto old = std::find_if(replaced.begin(), replaced.end(), hasItsName);
        track.inPlaceOf = old != replaced.end() ? *old : QString();
        replaced.removeOne(track.inPlaceOf);
    }
    for (auto &track : tracks) {
        if (track.inPlaceOf.isEmpty() && tracks.size() == ids.size())
            track.inPlaceOf = replaced.takeFirst();
    }
    context_.session.setImportSettings(request.readAgain, importSettings(reading_.optionsOf(request)));
    emit added(request, song, context_.tracks.replace(request.step, ids, tracks));
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
