#pragma once

#include "core/AbcNumbers.h"
#include "core/HeaderFields.h"
#include "core/Ticks.h"

#include <algorithm>
#include <array>
#include <vector>

// What AbcParser keeps while it reads: the element at hand, the measure's accidentals and the position.
// Private to it.

// A note as written, before it sounds: lengths can still change while the rhythm around it is read.
struct WrittenNote
{
    quint32 pitch = 0;
    Ticks length = 0;
    bool staccato = false;
    bool tied = false;
    quint32 textLine = 0;
    quint32 textColumn = 0;
    quint32 textLength = 0;
};

// A note, rest or chord: what a tuplet counts and a broken rhythm joins.
struct AbcElement
{
    bool present = false;
    bool isChord = false;
    std::vector<WrittenNote> notes; // those in the playable range
    Ticks advance = 0;              // the shortest length written in it
    bool isEmpty = true;            // holds neither note nor rest
    AbcRatio chordLength;
    bool chordTied = false;

    Ticks length() const { return chordLength.of(advance); }

    void clear()
    {
        present = isChord = chordTied = false;
        isEmpty = true;
        notes.clear();
        advance = 0;
        chordLength = {};
    }

    // A note or rest of this length.
    void add(Ticks length)
    {
        advance = isEmpty ? length : std::min(advance, length);
        isEmpty = false;
    }

    void scale(const AbcRatio &ratio)
    {
        if (ratio.isOne())
            return;
        advance = ratio.of(advance);
        for (auto &note : notes)
            note.length = ratio.of(note.length);
    }
};

// The accidentals written so far in the measure, by diatonic step.
class MeasureAccidentals
{
public:
    MeasureAccidentals() { clear(); }

    void clear() { accidentals_.fill(none); }
    void set(int octave, int letter, int accidental) { accidentals_[index(octave, letter)] = qint8(accidental); }
    int value(int octave, int letter, int fromKey) const
    {
        const auto accidental = accidentals_[index(octave, letter)];
        return accidental == none ? fromKey : accidental;
    }

private:
    static constexpr qint8 none = -128;
    // A note's text is at most 20 characters, so octaves stay within -20..20.
    static size_t index(int octave, int letter) { return size_t((octave + 20) * 7 + letter); }

    std::array<qint8, 41 * 7> accidentals_;
};

// When the music at hand sounds, and the grid of measures that bar lines put it on.
class AbcPosition
{
public:
    Ticks now() const { return now_; }
    Ticks measureTicks() const { return measureTicks_ != 0 ? measureTicks_ : ticksPerWholeNote; }
    bool isCompound() const { return isCompound_; }

    void advance(Ticks length) { now_ = std::min(maxTicks, now_ + length); }

    // Measures are counted from here on.
    void setMetre(const HeaderFields::Metre &metre)
    {
        begin_ = now_;
        bars_ = 0;
        measureTicks_ = metre.measureTicks();
        isCompound_ = metre.isCompound();
    }

    // Back on the grid, even if the notes did not fill the measure.
    void barLine()
    {
        if (measureTicks_ == 0)
            return;
        ++bars_;
        now_ = std::min(maxTicks, begin_ + scaled(measureTicks_, bars_, 1));
    }

    // A rest of several measures: the next bar line counts for the last of them.
    void skipBarLines(quint64 measures)
    {
        if (measures > 0)
            bars_ += quint32(measures - 1);
    }

private:
    Ticks now_ = 0;
    Ticks begin_ = 0;        // of the metre in force
    Ticks measureTicks_ = 0; // 0 without a metre
    quint32 bars_ = 0;       // since then
    bool isCompound_ = false;
};
