#pragma once

#include "core/Track.h"
#include "edit/NoteEdit.h"

#include <QVector>

// What of a track is to be heard just now. A value.
class PlaybackMarks
{
public:
    Ticks position() const { return position_; } // -1 while nothing plays
    // Indices in the track's events, sorted.
    const QVector<int> &notes() const { return notes_; }

    // Both tell whether that changed anything.
    bool setPosition(Ticks tick);
    bool setNotes(const QVector<NoteSpec> &notes, const Track &track);
    // The same notes, where another reading has them: those that it does not have may come back with a later one.
    void follow(const Track &track);

private:
    Ticks position_ = -1;
    QVector<NoteSpec> specs_;
    QVector<int> notes_;
};
