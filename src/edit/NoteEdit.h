#pragma once

#include "core/Ticks.h"

#include <QVector>

#include <compare>

// A note as the piano roll draws it.
struct NoteSpec
{
    Ticks start = 0;
    Ticks length = 0;
    quint32 pitch = 0;

    // By start, then length, then pitch.
    friend auto operator<=>(const NoteSpec &, const NoteSpec &) = default;
};

// A batch of changes to notes, made in one step. Notes are named by their index in the track's events.
struct NoteEdit
{
    struct Change
    {
        int note = -1;
        NoteSpec to;
    };

    QVector<Change> changed; // moved, resized, transposed
    QVector<int> removed;
    QVector<NoteSpec> inserted;
};
