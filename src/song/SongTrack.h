#pragma once

#include "core/Track.h"

#include <QString>
#include <QVector>

#include <memory>

// One track of the song with everything that undo brings back. Never changed once it is in a song: a change puts a new
// value in its place, so that the history shares whatever stayed the same.
struct SongTrack
{
    QString id; // "T1", "T2", …; never given twice by one list
    std::shared_ptr<const Track> track;
    QString instrument; // a name of the catalogue
    bool isMuted = false;
    int volume = 100;    // percent
    int pan = 0;         // -100 left … 100 right
    QString import = {}; // the id of the import that it came from; may be empty
    int startOffset = 0; // milliseconds, as in SongPart

    bool operator==(const SongTrack &) const = default; // equal notes only where they are shared
};

using SongTracks = QVector<std::shared_ptr<const SongTrack>>; // in display order

// The track with the title as its only T field. Its ABC text stays as it is but for the title's line; where that is not
// exactly one, the text is made anew.
Track renamed(const Track &track, const QString &title);

// The track with the title in place of its first one, in the text too.
Track copyWithTitle(const Track &track, const QString &title);

// The title with the lowest number from 2 on that makes it none of the others: "Hymn (2)", and of that "Hymn (3)".
QString numberedTitle(const QString &title, const QStringList &others);
