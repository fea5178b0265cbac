#pragma once

#include "core/Track.h"
#include "edit/NoteEdit.h"

// Notes of a track that are moved together, further and further, from where they were. A value.
class NoteMove
{
public:
    NoteMove() = default;
    // By their index in the track's events.
    NoteMove(const Track &track, const QVector<int> &notes);

    // Movement in time stops at the start, movement in pitch is left out where a note would leave the playable range.
    NoteMove further(Ticks ticks, int semitones) const;
    bool isAsFarAs(const NoteMove &other) const { return ticks_ == other.ticks_ && semitones_ == other.semitones_; }
    bool isInTime() const { return ticks_ != 0; }

    QVector<NoteSpec> moved() const;
    NoteEdit edit() const;
    // The other notes on which the moved ones lie now, which the edit replaces.
    int replacedCount() const;

private:
    Track track_;
    QVector<int> notes_;
    QVector<NoteSpec> from_;
    Ticks ticks_ = 0;
    int semitones_ = 0;
};

// How far the notes can go.
Ticks possibleShift(const QVector<NoteSpec> &notes, Ticks ticks);
int possibleTransposition(const QVector<NoteSpec> &notes, int semitones); // all or nothing
