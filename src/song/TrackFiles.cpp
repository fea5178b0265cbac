#include "song/TrackFiles.h"

#include <QFileInfo>

#include <algorithm>
#include <iterator>

namespace {

// A track of a song has its text made.
QString textOf(const Track &track)
{
    auto copy = track;
    return copy.toAbc();
}

bool hasNotes(const Track &track)
{
    const auto &events = track.events();
    return std::any_of(events.begin(), events.end(), [](const TrackEvent &event) { return event.isNote(); });
}

// How paths of one file are told to be the same.
QString fileOf(const QString &path)
{
    if (path.isEmpty())
        return {};
    const QFileInfo info(path);
    return info.exists() ? info.canonicalFilePath() : info.absoluteFilePath();
}

} // namespace

void TrackFiles::clear()
{
    saved_.clear();
    compared_.clear();
}

void TrackFiles::add(const SongTrack &track, const QString &path)
{
    if (!path.isEmpty() || !hasNotes(*track.track))
        saved_.insert(track.id, {path, fileOf(path), track.track});
}

void TrackFiles::setPath(const QString &id, const QString &path)
{
    saved_.insert(id, {path, fileOf(path), nullptr});
}

void TrackFiles::markSaved(const QString &id, const QString &path, const std::shared_ptr<const Track> &written)
{
    const auto file = fileOf(path);
    const auto text = textOf(*written);
    for (auto other = saved_.begin(); other != saved_.end();) {
        const bool isReplaced = other->file == file && !(other->track && textOf(*other->track) == text);
        other = isReplaced ? saved_.erase(other) : std::next(other);
    }
    saved_.insert(id, {path, file, written});
}

bool TrackFiles::isUnsaved(const SongTrack &track) const
{
    const auto saved = saved_.value(track.id).track;
    return saved != track.track && (!saved || !compared_.areSame(track.id, textOf(*saved), textOf(*track.track)));
}

std::optional<QString> TrackFiles::savedText(const QString &id) const
{
    const auto saved = saved_.value(id);
    return saved.track && !saved.path.isEmpty() ? std::optional(textOf(*saved.track)) : std::nullopt;
}

QStringList TrackFiles::rivals(const SongTracks &song, const SongTrack &track, const QString &path) const
{
    const auto file = fileOf(path);
    QStringList rivals;
    for (const auto &other : song) {
        if (other->id != track.id && saved_.value(other->id).file == file &&
            textOf(*other->track) != textOf(*track.track))
            rivals.append(other->id);
    }
    return rivals;
}
