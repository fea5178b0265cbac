#pragma once

#include "core/Ticks.h"

#include <vector>

// A note whose start was moved.
struct Shift
{
    double ms = 0; // in the song's own tempo
    Ticks place = 0;
};
using Shifts = std::vector<Shift>;

// How far realignment moved the starts of notes.
struct ShiftReport
{
    int shiftedNotes = 0;
    double largestMs = 0;
    double totalMs = 0;
    Ticks largestAt = 0; // where the first of the largest was

    double meanMs() const { return shiftedNotes > 0 ? totalMs / shiftedNotes : 0; }

    void add(const Shifts &shifts)
    {
        for (const auto &shift : shifts)
            add(ShiftReport{1, shift.ms, shift.ms, shift.place});
    }
    void add(const ShiftReport &other)
    {
        shiftedNotes += other.shiftedNotes;
        totalMs += other.totalMs;
        if (other.largestMs > largestMs) {
            largestMs = other.largestMs;
            largestAt = other.largestAt;
        }
    }
};

// What an import left out or changed, counted in notes unless said otherwise.
struct ImportReport
{
    int belowVelocityGate = 0; // too soft to be meant
    int restruck = 0;          // cut off by the same key without having been released
    int outOfRange = 0;        // below or above the playable range
    int folded = 0;            // moved by octaves into the playable range
    int unterminated = 0;      // never released; closed or dropped at the end of their track
    int undecodedTexts = 0;    // names that are not UTF-8 and were read as Latin-1
    ShiftReport shifts;
};
