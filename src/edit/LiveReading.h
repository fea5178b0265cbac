#pragma once

#include "edit/AbcReading.h"

// A caret in a text and what is written there.
struct TextCaret
{
    int offset = 0;
    int note = -1; // -1 where it is on no note
    Ticks tick = 0;
    Ticks insertion = 0; // where a note begins that is entered here
};

// The reading of a text that is typed on: what was read last, and how its places and those of the text as it stands now
// go together. A value.
class LiveReading
{
public:
    const AbcReading &operator*() const { return reading_; }
    const AbcReading *operator->() const { return &reading_; }

    // The text was read anew.
    void take(AbcReading reading);
    // At `position`, `removed` characters gave way to `added` new ones.
    void addTyping(int position, int removed, int added);

    // From places of the reading to places of the text as it stands now, and back. A range that was typed into is
    // empty; typing that only touches it leaves it.
    TextRange sinceReading(TextRange range) const;
    int beforeTyping(int offset) const;

    // All of these count in the text as it stands now.
    TextRange textOf(int note) const; // its own characters; empty when they are gone
    int noteAt(int offset) const;     // whose characters hold the offset or end at it; -1 when there is none
    QVector<int> notesWithin(TextRange range) const;
    // Between two elements the caret's time is the beginning of the next.
    TextCaret caretAt(int offset) const;

private:
    struct Typing
    {
        int position, removed, added;
    };

    AbcReading reading_;
    QVector<Typing> typing_; // since the reading
};
