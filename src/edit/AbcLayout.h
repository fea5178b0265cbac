#pragma once

#include "core/AbcListener.h"
#include "core/AbcNumbers.h"
#include "core/Track.h"
#include "edit/TextChange.h"

#include <QString>
#include <QVector>

#include <functional>
#include <utility>

// A note, rest or chord with all its characters, and the time it takes.
struct AbcTextElement
{
    TextRange range;
    Ticks start = 0;
    Ticks advance = 0;
    AbcRatio written; // in unit lengths: the shortest length in it, without that of the chord
    AbcRatio chordLength;
    TextRange chordLengthText; // empty where the chord writes none
    bool isChord = false;
    bool isTied = false;         // as a whole
    bool isMeasuresRest = false; // "Z"
    int firstToken = 0;
    int endToken = 0;

    Ticks end() const { return start + advance; }
    // The length of one of a rest's measures.
    Ticks measureOfRest() const { return written.numerator == 0 ? 0 : Ticks(quint64(advance) / written.numerator); }
};

// A note of the text, in a chord or alone. A tied note has several for one event.
struct AbcNoteToken
{
    TextRange range;
    TextRange spelling; // accidental, letter and octave
    TextRange lengthText;
    AbcRatio written; // in unit lengths
    int event = -1;   // in the track's events; -1 for a note that the instruments do not play
    int unit = 0;
    int step = 0;       // diatonic, 7 to an octave; 0 is middle C
    int accidental = 0; // that it sounds with
    bool isExplicit = false;
    bool isStaccato = false;
    bool isTied = false; // by itself or by its chord
};

// The least that can be written anew by itself: an element, a tuplet with all its elements, elements that a broken
// rhythm joins, or a gap: the time between what is written and the bar line, the whole measure where nothing is written
// in it, or the time behind the end of the music.
struct AbcUnit
{
    TextRange range; // empty for a gap
    Ticks start = 0;
    Ticks end = 0; // maxTicks for the gap at the end
    int firstElement = 0;
    int endElement = 0;
    int firstToken = 0;
    int endToken = 0;
    bool isGap = false;
    bool isCompound = false;      // a tuplet or part of one, or joined by a broken rhythm
    bool continuesTuplet = false; // that began before a bar line or field
    bool isCut = false;           // part of such a tuplet
    bool joinsPrevious = false;   // nothing but blanks between, and no time lost
    bool isRest() const { return !isGap && firstToken == endToken; }
};

// A bar line, behind which the accidentals of the measure no longer hold, or a new key, behind which they still do.
struct AbcAccidentalMark
{
    enum class Kind { BarLine, Key };

    int offset = 0;
    quint32 keyRow = 0; // in force from here
    Ticks time = 0;     // of what comes behind it
    Kind kind = Kind::BarLine;
};

// Where the music of a text stands and when it sounds: what the events of a track do not tell.
struct AbcLayout
{
    QVector<AbcTextElement> elements; // in the order of the text, as are all of these
    QVector<AbcUnit> units;           // the last is the gap at the end
    QVector<AbcNoteToken> tokens;
    QVector<AbcAccidentalMark> marks; // the first is the key of the header, at the beginning of the body
    int bodyOffset = 0;               // behind the line of the header's K field
    bool tailNeedsLine = false;       // what is appended must begin a line: a field or a comment ends the text

    // The rest of measures among the unit's elements; null where it has none.
    const AbcTextElement *measuresRest(const AbcUnit &unit) const;
    // The last note that begins at the offset or before it; -1 before the first.
    int tokenAt(int offset) const;
    // The last element that begins at the offset or before it; -1 before the first.
    int elementAt(int offset) const;
    // The element that sounds at the tick; the last one before it where none does, -1 when there is none.
    int elementAtTick(Ticks tick) const;
};

// Is told what is passed over; see AbcListener::refused().
using AbcRefusals = std::function<void(AbcRefusal why, const AbcToken &first, const AbcToken &last)>;

// Reads the text as parseAbc() does, but passes over what that throws for.
std::pair<Track, AbcLayout> parseWithLayout(const QString &text, const AbcRefusals &refusals);
