#pragma once

#include "audio/TempoMap.h"

#include <vector>

struct TempoChange
{
    Ticks at;
    qint64 ticksPerMinute; // above 0

    bool operator==(const TempoChange &) const = default;
};

// The tempo at the start, and what changes it before the tick; tempos of 0 do not. [any]
std::vector<TempoChange> tempoChanges(const Track &track, Ticks before = 2 * maxTicks);

// Where the ticks of a track stand in another track's tempo: where they are, or at the same moment when the tempos
// differ while the track lasts. [any]
class TempoPlaces
{
public:
    TempoPlaces(const Track &track, const Track &leader);

    bool areMoved() const { return areMoved_; }
    Ticks of(Ticks tick) const; // to the nearest

private:
    bool areMoved_;
    TempoMap track_;
    TempoMap leader_;
};
