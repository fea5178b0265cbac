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
};

using SongTracks = QVector<std::shared_ptr<const SongTrack>>; // in display order
