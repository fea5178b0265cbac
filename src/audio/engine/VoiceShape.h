#pragma once

#include "audio/AudioEngine.h"
#include "audio/sound/Kernels.h"

#include <algorithm>

// A voice as plain numbers, which the mixer may copy: where its samples lie and when they sound. Whoever makes one
// keeps the sound alive. [any]
struct VoiceShape
{
    Planes<const float> source;
    DspClock start = 0;
    DspClock end = 0;
    DspClock fadeEnd = 0;
    std::uint64_t frames = 0; // output frames from the start to the end of the sound
    Position step = 0;        // source frames per output frame, 32.32
    float gain = 0;
    LateStart lateStart = LateStart::Moved;
    DspClock entered = 0; // where it began inside its sound, and rises from silence over some frames; 0: nowhere
    float slope = 0;      // gain per frame that is left to fadeEnd, from `end` on

    DspClock stop() const { return std::min(fadeEnd, start + frames); }
    float gainAt(DspClock clock) const { return clock < end ? gain : float(std::int32_t(fadeEnd - clock)) * slope; }

    // The mixer takes it at the clock.
    void enter(DspClock now);
    // Falls from its present gain to 0 in the given time from `now` on; a fade that ends sooner anyway stays.
    void fadeFrom(DspClock now, std::uint64_t fadeFrames);
};

// InvalidArgument when a number of the voice is out of its range.
AudioResult shapeOf(const VoiceSpec &spec, VoiceShape &shape);
