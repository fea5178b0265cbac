#pragma once

#include "base/ComparedTexts.h"
#include "song/SongTrack.h"

#include <QHash>

#include <optional>

// Which file each track of a song is saved in, and whether that holds the track as it is. Tracks that were taken out
// stay known, since they may come back. On one thread at a time.
class TrackFiles
{
public:
    void clear();

    // A track that comes in, from a file that holds it as it is or, without a path, from elsewhere.
    void add(const SongTrack &track, const QString &path);
    // A file for what is not in it yet.
    void setPath(const QString &id, const QString &path);
    // The file holds this; every other track that it held as another text has no file from here on.
    void markSaved(const QString &id, const QString &path, const std::shared_ptr<const Track> &written);

    // A track is unsaved when it differs from its file, or has none. One without notes counts as saved as long as it
    // stays as it was added.
    bool isUnsaved(const SongTrack &track) const;
    // Empty while the track has no file.
    QString path(const QString &id) const { return saved_.value(id).path; }
    // What the file held when it was read or saved last; nothing where that is not known.
    std::optional<QString> savedText(const QString &id) const;
    // The others of the song with this file, whose texts differ from that of the track.
    QStringList rivals(const SongTracks &song, const SongTrack &track, const QString &path) const;

private:
    struct SavedAs
    {
        QString path;                       // empty where there was nothing to save
        QString file;                       // the same whichever links and folders the path goes through
        std::shared_ptr<const Track> track; // none while the file holds something else
    };

    QHash<QString, SavedAs> saved_;  // by track
    mutable ComparedTexts compared_; // a track's with that of its file
};
