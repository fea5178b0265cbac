#pragma once

#include "core/Track.h"

// The track in the tempos of another, its text to be made anew: everything sounds at the same moment as before, to the
// nearest tick, and no note becomes shorter than one. Both normalised. [any]
Track inTempoOf(const Track &track, const Track &leader);

// Gives the track, whose events stay where they are, the tempos of another; whoever calls it ends with normalize().
void takeTempos(Track &track, const Track &leader);
