#pragma once

#include "import/quantise/LengthPrices.h"
#include "import/quantise/MeasureGrids.h"

#include <vector>

// A note whose start has its place in the score, and whose length is looked for.
struct LooseNote
{
    size_t onset = 0; // index of its place
    Ticks playedLength = 0;
    Ticks playedEnd = 0;
    Ticks longest = 0; // to the next note of its pitch
    double msPerTick = 0;
};

// Lengths as they would be written, for notes in the order of their onsets. Costs are in characters of ABC text:
// - the square of the shift of each end, a fifth of the note's length (or 25 ms, if that is longer) being one;
// - the length itself;
// - what notes that start together need beside them, if none ends where the next start: a rest, or a rest in their
//   brackets.
std::vector<Ticks> chooseLengths(const std::vector<LooseNote> &notes, const std::vector<PlacedOnset> &places,
                                 LengthPrices &prices);
