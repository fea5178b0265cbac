#pragma once

#include "audio/AudioEngine.h"

// What a render does with the frames that are mixed, before they are written: only a range of them, at a gain. [render]
class RenderSink
{
public:
    // from..to: in frames of the song. write: takes what is in the range, at the gain; may be none.
    RenderSink(DspClock from, DspClock to, float gain, MixedFrames write);

    AudioResult take(std::span<const float> stereo);

    // Of what was in the range, at the gain; 0 when it is written.
    float peak() const { return peak_; }

private:
    DspClock from_;
    DspClock to_;
    float gain_;
    MixedFrames write_;
    DspClock clock_ = 0;
    float peak_ = 0;
    std::vector<float> scaled_;
};
