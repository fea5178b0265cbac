#pragma once

#include "import/standard/Fraction.h"

#include <QStringView>
#include <QTypeInfo>
#include <QVector>

#include <span>
#include <vector>

// A voice as it is written, before repeats are played: what sounds and what steers the order, one item after the other.
struct ScoreNote
{
    int pitch = 0; // note number, 60 = middle C; may lie outside of what can be played
    Fraction length;
    bool isTied = false;
};

// Some notes of a voice that follow each other, by their place in VoiceScore.
struct ScoreNotes
{
    quint32 begin = 0;
    quint32 count = 0;
};

struct ScoreItem
{
    enum class Kind : quint8 {
        Sound,       // notes, or none for a rest
        Bar,         // the end of a measure
        RepeatStart, // |:
        RepeatEnd,   // :|
        Ending,      // [1 and its kin
        EndingStop,  // a bar line that ends an ending: || |] [|
        Part,        // P:A
        Overlay,     // &: time goes back to the bar line before
        Key,
        Metre,
        Tempo,
        ChordName, // in a string over the music
    };
    Kind kind = Kind::Sound;
    Fraction duration;  // Sound: how far time moves on; no note need be as long
    ScoreNotes notes;   // Sound
    ScoreNotes graces;  // Sound: played before the notes, in time taken from them
    quint64 passes = 0; // Ending: bit n for pass n, from 1; RepeatEnd: how often all is played
    quint32 first = 0; // Sound: bar lines within it, of a rest of measures; Key: row, Metre and Tempo: numerator; Part:
                       // the letter; ChordName: semitones that it is moved by, as an int
    quint32 second = 0;    // Key: mode, Metre and Tempo: denominator
    quint32 perMinute = 0; // Tempo
    QStringView text = {}; // ChordName: of the text that was read
};

Q_DECLARE_TYPEINFO(ScoreItem, Q_MOVABLE_TYPE);

struct VoiceScore
{
    QVector<ScoreItem> items;
    std::vector<ScoreNote> notes; // of all items

    std::span<const ScoreNote> in(const ScoreNotes &some) const { return {notes.data() + some.begin, some.count}; }
    std::span<ScoreNote> in(const ScoreNotes &some) { return {notes.data() + some.begin, some.count}; }
};
