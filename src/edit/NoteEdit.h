#pragma once

#include "core/Ticks.h"

#include <QString>
#include <QVector>

// A note as the piano roll draws it.
struct NoteSpec
{
    Ticks start = 0;
    Ticks length = 0;
    quint32 pitch = 0;

    friend bool operator==(const NoteSpec &a, const NoteSpec &b)
    {
        return a.start == b.start && a.length == b.length && a.pitch == b.pitch;
    }
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

// Characters of a text, counted in UTF-16 units from its beginning.
struct TextRange
{
    int offset = 0;
    int length = 0;

    int end() const { return offset + length; }
    bool isEmpty() const { return length == 0; }
};

struct TextChange
{
    TextRange range;
    QString text;
};
