#pragma once

#include "arrange/Arrangement.h"

#include <vector>

enum class NoteRole : quint8 { Drum, Doubled, Inner, Bass, Melody }; // ascending in what they are worth

// One note on its way to a player; private to this folder.
struct ArrangeNote
{
    Ticks start;
    Ticks end; // as it will sound
    Ticks length;
    quint32 pitch;  // of the source
    quint32 played; // moved by octaves
    float velocity;
    int part; // of the source
    int weight = 0;
    NoteRole role = NoteRole::Inner;
    int seat = -1; // of the player; none when it is dropped
    DropReason reason = DropReason::NoVoice;

    bool isLine() const { return role >= NoteRole::Bass; }
};
using ArrangeNotes = std::vector<ArrangeNote>;

namespace ArrangeCost {
constexpr int melody = 1'000'000;
constexpr int bass = 4'000;
constexpr int inner = 500; // and as much again for a half note
constexpr int doubled = 100;
constexpr int lineCut = 300;
constexpr int otherPlayer = 200;
constexpr int sameInstrument = 50;
constexpr int otherForBass = 2'000;
constexpr int otherForMelody = 100'000;
constexpr int octave = 100;
} // namespace ArrangeCost

// All notes with their roles and weights: by start, then the weightiest first. Notes without length, or too high for
// MIDI, are not among them, but counted in the figures of their parts.
ArrangeNotes collectNotes(const QVector<SourcePart> &parts, QVector<PartFigures> &figures);
struct Lines
{
    std::optional<int> melody;
    std::optional<int> bass;
};
Lines findLines(const QVector<SourcePart> &parts, const ArrangeNotes &notes, const ArrangeOptions &options);
void giveRoles(ArrangeNotes &notes, const QVector<SourcePart> &parts, const Lines &lines);

// The pitch moved by as few octaves as possible; nothing when none of them is in the range.
std::optional<quint32> foldedInto(const PitchRange &range, quint32 pitch);

// Calls visit(first, last) for each group of notes that begin together.
template<typename Iterator, typename Visit>
void forEachStart(Iterator begin, Iterator end, Visit visit)
{
    while (begin != end) {
        auto last = begin;
        while (last != end && last->start == begin->start)
            ++last;
        visit(begin, last);
        begin = last;
    }
}
