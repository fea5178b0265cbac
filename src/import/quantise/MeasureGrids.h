#pragma once

#include "core/Measures.h"
#include "import/quantise/LengthPrices.h"

#include <stop_token>
#include <vector>

// A time at which notes begin, and how long a tick lasts there.
struct Onset
{
    Ticks time = 0;
    double msPerTick = 0;
};

// Where the onset stands in the score, and the steps of its measure's grid; the second is 0 in a plain one.
struct PlacedOnset
{
    Ticks time = 0;
    Ticks step = 0;
    Ticks secondStep = 0;
};

// No onset is moved further, in milliseconds, while a quarter note takes less than three seconds.
constexpr double farthestShiftMs = 15;

// Finds the grid that the music is on in each of its measures, and puts each onset on it; order is kept. Straight grids
// down to 128ths, triplets, and both together are tried, and a line of grids through all measures is chosen that costs
// least. Costs are in characters of ABC text:
// - the square of each onset's shift, twelve milliseconds being one character;
// - the lengths from onset to onset, from the bar line and to the next, as they are written;
// - three for a change between straight, triplet and mixed grids, one for a finer or coarser grid of the same kind, and
//   what is fixed for the rarer grids in each measure.
// An onset that its grid is too far away from goes to the coarsest of the finer grids that is near enough, for one
// more. The onsets ascend; behind their places follows the end of the last measure. Throws Interrupted soon after a
// stop.
std::vector<PlacedOnset> placeOnsets(const std::vector<Onset> &onsets, const Measures &measures, LengthPrices &prices,
                                     const std::stop_token &stop);
