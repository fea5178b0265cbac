#pragma once

#include "arrange/ArrangeNotes.h"

// One player: the parts of the source that are at home there.
struct Seat
{
    QVector<int> parts; // the first gives the instrument
    QString instrument;
    PitchRange range;
    bool isPercussion = false;
    int number = 0; // of the players that share these parts, from the top
    int sharers = 1;

    bool isHomeOf(int part) const { return parts.contains(part); }
};

// Which parts come together at which player, at most as many as there are players. A merge costs
//
//   the weights of the notes for which no voice would be free, above those of the two apart,
//   200 for each note that changes its instrument, and 100 for each that leaves the range,
//
// and another player for a part gains the weights of the notes that get a voice by it, less 1000. A voice counts as
// free when three quarters of its note are over. Beyond 32 parts, the smallest is merged without looking at the others.
std::vector<Seat> seatsFor(const QVector<SourcePart> &parts, const ArrangeNotes &notes, const Lines &lines,
                           const ArrangeOptions &options, const std::stop_token &stop);
