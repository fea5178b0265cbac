#pragma once

#include "audio/TempoMap.h"

#include <optional>

// Where in the song a moment of the steady clock is. The player tells now and then where it is; that comes late by
// different times, so that what was told soonest counts, and the clock follows the others slowly.
class SongClock
{
public:
    // Of a track's tempo, times the factor.
    SongClock(const Track &track, double tempoFactor) : map_(track, rate, tempoFactor) {}

    // at: milliseconds. What is far from where it should be begins anew: the song was sought in.
    void report(Ticks position, double at);
    // Nothing before the first report; 0 for what is before the song.
    std::optional<Ticks> tickAt(double at) const;

private:
    static constexpr int rate = 48000; // as fine as what is heard

    TempoMap map_;
    std::optional<double> start_; // when the song's first tick was heard, or would have been
};
