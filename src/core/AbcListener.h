#pragma once

#include "core/AbcTokenizer.h"
#include "core/Ticks.h"
#include "core/TrackEvent.h"

// A note as it is written and as it sounds.
struct AbcPitch
{
    int step = 0;       // diatonic, 7 to an octave; 0 is middle C
    int accidental = 0; // that it sounds with, written here or not
    int pitch = 0;      // as MIDI counts; may be outside the playable range
};

// Why the strict reader ends.
enum class AbcRefusal {
    HeaderText,     // before the K: line, where only fields and comments stand; reaches to the end of its line
    UnknownToken,   // means nothing in music
    HugeNumber,     // of more than 32 bits
    OpenChord,      // the bracket of a chord that meets, before its end, what no chord can hold
    EmptyChord,     // all of it
    GiantChord,     // a note too many
    ForeignInChord, // what stands in a chord and is no note, rest or blank
};

// Is told by parseAbc(), on its thread and in the order of the text, what of the body has been read and when it sounds.
// Lines count from 0. Tokens refer to the text. What grace notes hold is told as tokens alone: they take no time.
class AbcListener
{
public:
    virtual ~AbcListener() = default;

    // The header is read; its key holds. The line is one behind the last when there is no body.
    virtual void bodyBegins(int line, quint32 keyRow) = 0;

    // Each token of the body that is read, before the calls that say what it means.
    virtual void token(const AbcToken &token) = 0;

    // A note, rest or chord begins, at the time where the one before it ended or where a bar line put it. isBroken: a
    // broken rhythm joins it to the one before.
    virtual void elementBegins(const AbcToken &first, bool isBroken, bool inTuplet) = 0;
    // A note of the element, alone or in a chord.
    virtual void note(const AbcToken &token, const AbcPitch &pitch) = 0;
    virtual void elementEnds(const AbcToken &last) = 0;
    // Told for each element, but only when what follows it is known, which can still change its length.
    virtual void elementSounds(Ticks end) = 0;

    // A note whose tie the next note of its pitch does not continue, or none does. Told when that is known, so not in
    // the order of time.
    virtual void tieLost(const TrackEvent & /*note*/) {}

    // What stands from one token to the other, often the same, is refused, and no other call tells of it. True: reading
    // goes on behind it, as if blanks stood there. False: parseAbc() throws.
    virtual bool refused(AbcRefusal /*why*/, const AbcToken & /*first*/, const AbcToken & /*last*/) { return false; }

    // The bar line, or the place of a new key, from where on the key holds. A bar line can move the position.
    virtual void barLine(const AbcToken &token, quint32 keyRow, Ticks position) = 0;
    virtual void keyChange(const AbcToken &token, quint32 keyRow) = 0;
};
