#pragma once

#include "audio/AudioEngine.h"

#include <vector>

// How the gain of a voice goes over time: linear between points, on the engine's clock. A value. [any]
class FmodEnvelope
{
public:
    struct Point
    {
        DspClock clock;
        float level; // of the gain
    };

    FmodEnvelope() = default;
    // Of a voice that begins at `start`, which may be later than it should; rise: frames in which it comes out of
    // silence.
    FmodEnvelope(const VoiceSpec &spec, DspClock start, DspClock rise);

    const std::vector<Point> &points() const { return points_; }
    DspClock start() const { return points_.front().clock; }
    DspClock stop() const { return stop_; } // where the voice ends; `never` when only its sound does
    float levelAt(DspClock clock) const;

    // Falls to 0 in so many frames from now on, unless it ends sooner anyway; false when it does.
    bool fadeFrom(DspClock now, DspClock frames);

private:
    void add(DspClock clock, float level) { points_.push_back({clock, level}); }

    std::vector<Point> points_ = {{0, 1}}; // with rising clocks
    DspClock stop_ = never;
};
