#pragma once

#include "core/Track.h"

#include <QVector>

// Some notes of a track, by their index in its events: sorted and unique. A value.
class NoteSelection
{
public:
    const QVector<int> &notes() const { return notes_; }

    // Both tell whether the selection changed. What is no note of the track is left out.
    bool select(const QVector<int> &notes, const Track &track);
    bool clear();
    // The same notes, where another reading has them.
    void follow(const Track &from, const Track &to);

private:
    QVector<int> notes_;
};
