#pragma once

#include "core/AbcParser.h"
#include "core/Ticks.h"
#include "core/TrackEvent.h"

#include <QVector>

#include <array>
#include <bitset>
#include <vector>

// What AbcParser keeps while it reads: the element at hand, the measure's accidentals and the ties that are open.
// Private to it.

// A factor of lengths.
struct AbcRatio
{
    quint64 numerator = 1;
    quint64 denominator = 1;

    Ticks of(Ticks length) const { return scaled(length, numerator, denominator); }
    bool isOne() const { return numerator == denominator; }
};

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

    void clear()
    {
        present = isChord = chordTied = false;
        isEmpty = true;
        notes.clear();
        advance = 0;
        chordLength = {};
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
    void clear() { accidentals_.fill(none); }
    void set(int octave, int letter, int accidental) { at(octave, letter) = qint8(accidental); }
    int value(int octave, int letter, int fromKey) const
    {
        const auto accidental = accidentals_[index(octave, letter)];
        return accidental == none ? fromKey : accidental;
    }

private:
    static constexpr qint8 none = -128;
    // A note's text is at most 20 characters, so octaves stay within -20..20.
    static size_t index(int octave, int letter) { return size_t((octave + 20) * 7 + letter); }
    qint8 &at(int octave, int letter) { return accidentals_[index(octave, letter)]; }

    std::array<qint8, 41 * 7> accidentals_;
};

// Tied notes that wait for their continuation, at most one a pitch.
class PendingTies
{
public:
    bool isEmpty() const { return pending_.none(); }
    TrackEvent *find(quint32 pitch) { return pending_[pitch] ? &notes_[pitch] : nullptr; }

    void put(const TrackEvent &note)
    {
        notes_[note.pitch()] = note;
        pending_.set(note.pitch());
    }

    void writeTo(QVector<TrackEvent> &events, quint32 pitch)
    {
        if (!pending_[pitch])
            return;
        events.append(notes_[pitch]);
        pending_.reset(pitch);
    }

private:
    std::array<TrackEvent, highestPlayablePitch + 1> notes_;
    std::bitset<highestPlayablePitch + 1> pending_;
};
