#include "app/services/SongSession.h"

#include "song/SongParts.h"

#include <QDir>
#include <QFileInfo>
#include <QUndoCommand>

#include <algorithm>
#include <utility>

namespace {

QString textOf(const Track &track)
{
    auto copy = track; // has its text, which is shared
    return copy.toAbc();
}

QString cleanPath(const QString &path)
{
    return path.isEmpty() ? QString() : QDir::cleanPath(QFileInfo(path).absoluteFilePath());
}

OpenedTrack openedTrack(const SongPart &part, Track track, FileHolds file)
{
    track.toAbc();
    SongTrack opened;
    opened.id = part.id;
    opened.track = std::make_shared<const Track>(std::move(track));
    opened.instrument = part.instrument;
    opened.isMuted = part.isMuted;
    opened.volume = part.volume;
    opened.pan = part.pan;
    opened.import = part.import;
    opened.startOffset = part.startOffset;
    return {opened, part.path, file};
}

bool hasSameMix(const SongTrack &a, const SongTrack &b)
{
    return a.instrument == b.instrument && a.isMuted == b.isMuted && a.volume == b.volume && a.pan == b.pan &&
           a.startOffset == b.startOffset;
}

} // namespace

class TitleStep : public QUndoCommand
{
public:
    TitleStep(SongSession &session, const QString &title)
        : QUndoCommand(SongSession::tr("Change Song Title")), session_(session), before_(session.title()), after_(title)
    {
    }

    void undo() override { session_.showTitle(before_); }
    void redo() override { session_.showTitle(after_); }

private:
    SongSession &session_;
    QString before_;
    QString after_;
};

SongSession::SongSession(TrackList &tracks, QObject *parent) : QObject(parent), tracks_(tracks)
{
    connect(&tracks_, &TrackList::songChanged, this, &SongSession::follow);
    connect(&tracks_, &TrackList::filesChanged, this, &SongSession::changed);
}

Song SongSession::song() const
{
    auto song = rest_;
    for (const auto &track : tracks_.song())
        song.parts.append(partOf(*track));
    return song;
}

SongPart SongSession::partOf(const SongTrack &track) const
{
    const auto kept = kept_.value(track.id);
    const auto title = track.track->title();
    SongPart part;
    part.id = track.id;
    part.name = title == kept.title ? kept.name : title;
    part.abc = textOf(*track.track);
    part.barLines = track.track->barLines();
    part.draft = draft(track.id);
    part.instrument = track.instrument;
    part.volume = track.volume;
    part.pan = track.pan;
    part.isMuted = track.isMuted;
    part.startOffset = track.startOffset;
    part.path = cleanPath(tracks_.filePath(track.id));
    part.import = track.import;
    part.others = kept.others;
    return part;
}

QString SongSession::name() const
{
    if (!rest_.title.isEmpty())
        return rest_.title;
    if (!file_.isEmpty())
        return QFileInfo(file_).completeBaseName();
    const auto &imports = rest_.imports; // also those whose parts have been removed
    const auto hasParts = [this](const SongImported &each) { return !partsOf(each.id).isEmpty(); };
    const auto first = std::find_if(imports.begin(), imports.end(), hasParts);
    const auto imported = imports.isEmpty() ? QString() : first == imports.end() ? imports.last().path : first->path;
    return imported.isEmpty() ? tr("Untitled") : QFileInfo(imported).completeBaseName();
}

bool SongSession::isUnsaved() const
{
    if (saved_)
        return !isAsSaved();
    return isRecovered_ || !tracks_.unsavedIds().isEmpty() || hasLostParts() || !isAsItCame();
}

// Where parts were imported from matters with the parts.
bool SongSession::isAsSaved() const
{
    auto now = song();
    now.imports = saved_->imports;
    const auto count = std::min(now.parts.size(), saved_->parts.size());
    for (int i = 0; i < count; ++i) {
        auto &text = now.parts[i].abc;
        const auto &savedText = saved_->parts[i].abc;
        if (!compared_.areSame(now.parts[i].id, text, savedText))
            return false;
        text = savedText; // which is seen to be the same at once
    }
    return now == *saved_;
}

bool SongSession::isSavedByPartsAlone() const
{
    const auto unsaved = tracks_.unsavedIds();
    const auto hasFile = [this](const QString &id) { return !tracks_.filePath(id).isEmpty(); };
    return !saved_ && !isRecovered_ && !hasLostParts() && isAsItCame() &&
           std::all_of(unsaved.begin(), unsaved.end(), hasFile);
}

bool SongSession::hasReplacedAllParts() const
{
    if (!saved_ || saved_->parts.isEmpty())
        return false;
    const auto ids = tracks_.ids();
    return std::none_of(saved_->parts.begin(), saved_->parts.end(),
                        [&ids](const SongPart &part) { return ids.contains(part.id); });
}

bool SongSession::isBlank() const
{
    return tracks_.isEmpty() && file_.isEmpty() && !isUnsaved();
}

bool SongSession::isAsItCame() const
{
    if (!rest_.title.isEmpty()) // which no part's file holds
        return false;
    int last = 0;
    for (const auto &track : tracks_.song()) {
        const auto seen = seen_.value(track->id);
        if (seen.number < last || !hasSameMix(*track, *seen.first) || drafts_.contains(track->id))
            return false;
        last = seen.number;
    }
    return true;
}

bool SongSession::hasLostParts() const
{
    return std::any_of(seen_.begin(), seen_.end(), [this](const Seen &seen) {
        return !tracks_.find(seen.last->id) && tracks_.isUnsaved(*seen.last) && tracks_.wasRemoved(seen.last->id);
    });
}

void SongSession::follow(const SongTracks &, const SongTracks &after)
{
    for (const auto &track : after)
        see(track);
    if (!isOpening_)
        emit changed();
}

void SongSession::see(const std::shared_ptr<const SongTrack> &track)
{
    auto &seen = seen_[track->id];
    if (!seen.first) {
        seen.number = int(seen_.size());
        seen.first = track;
    }
    seen.last = track;
}

void SongSession::leave()
{
    emit left(isUnsaved() ? SongJournal::Ending::Discarded : SongJournal::Ending::Saved);
}

void SongSession::open(const OpenedSong &opened)
{
    leave();
    reset();
    take(opened);
    emit this->opened();
    emit changed();
}

void SongSession::startNew()
{
    OpenedSong blank;
    blank.song.masterVolume = masterVolume();
    leave();
    reset();
    take(blank);
    saved_.reset(); // no file holds it
    emit opened();
    emit changed();
}

void SongSession::reset()
{
    kept_.clear();
    drafts_.clear();
    saved_.reset();
    compared_.clear();
    seen_.clear();
}

void SongSession::take(const OpenedSong &opened)
{
    file_ = opened.file;
    fileStamp_ = opened.fileStamp;
    isRecovered_ = opened.origin == OpenedSong::Origin::Recovered;
    rest_ = opened.song;
    QVector<OpenedTrack> tracks;
    for (int i = 0; i < opened.song.parts.size(); ++i) {
        const auto &part = opened.song.parts[i];
        const auto &track = opened.tracks[i];
        tracks.append(openedTrack(part, track, opened.inFiles.contains(part.id) ? FileHolds::Track : FileHolds::Other));
        kept_.insert(part.id, {part.name, track.title(), part.others});
        if (part.draft)
            drafts_.insert(part.id, *part.draft);
    }
    rest_.parts.clear();
    isOpening_ = true;
    tracks_.open(tracks);
    isOpening_ = false;
    if (!isRecovered_)
        saved_ = song();
}

Song SongSession::songToSave()
{
    takeEdits(tracks_.ids());
    return song();
}

void SongSession::markSaved(const Song &written, const QString &file, const QString &stamp)
{
    saved_ = written;
    file_ = file;
    fileStamp_ = stamp;
    isRecovered_ = false;
    emit changed();
}

void SongSession::setTitle(const QString &title)
{
    if (title != rest_.title)
        tracks_.history().push(new TitleStep(*this, title));
}

void SongSession::showTitle(const QString &title)
{
    rest_.title = title;
    emit changed();
}

void SongSession::setMasterVolume(int percent)
{
    if (std::exchange(rest_.masterVolume, percent) != percent)
        emit changed();
}

void SongSession::setLoop(const std::optional<SongLoop> &loop)
{
    if (std::exchange(rest_.loop, loop) != loop)
        emit changed();
}

void SongSession::setTempoFactor(int percent)
{
    if (std::exchange(rest_.tempoFactor, percent) != percent)
        emit changed();
}

QStringList SongSession::partsOf(const QString &import) const
{
    QStringList ids;
    for (const auto &track : tracks_.song()) {
        if (!import.isEmpty() && track->import == import)
            ids.append(track->id);
    }
    return ids;
}

// The same import again, of whose parts none is left, is the same one.
QString SongSession::addImport(SongImported imported)
{
    for (const auto &known : std::as_const(rest_.imports)) {
        const bool isSame =
            known.path == imported.path && known.text == imported.text && known.settings == imported.settings;
        if (isSame && !known.id.isEmpty() && partsOf(known.id).isEmpty())
            return known.id;
    }
    imported.id = SongParts::freeImportId(rest_.imports);
    rest_.imports.append(imported);
    emit changed();
    return imported.id;
}

void SongSession::setImportSettings(const QString &id, const QJsonObject &settings)
{
    for (auto &imported : rest_.imports) {
        if (imported.id == id)
            imported.settings = settings;
    }
    emit changed();
}

std::optional<QString> SongSession::draft(const QString &partId) const
{
    const auto found = drafts_.find(partId);
    return found != drafts_.end() ? std::optional(*found) : std::nullopt;
}

void SongSession::setDraft(const QString &partId, const std::optional<QString> &text)
{
    if (text == draft(partId))
        return;
    if (text)
        drafts_.insert(partId, *text);
    else
        drafts_.remove(partId);
    emit changed();
}
