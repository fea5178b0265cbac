#pragma once

#include "audio/engine/OfflineMix.h"

#include <memory>

// Mixes a timeline span by span, as jobs of the host, and writes the spans in order. The samples do not depend on the
// number of cores. [render]
class SpanRender
{
public:
    SpanRender(Timeline &timeline, RenderHost &host, MixedFrames write);

    AudioResult run(); // once

private:
    struct Span;

    std::optional<RenderJob> nextJob();
    void addVoices(Span &span, DspClock to);
    void take(const Span &span);

    Timeline &timeline_;
    RenderHost &host_;
    MixedFrames write_;
    DspClock end_;
    DspClock spanFrames_;
    DspClock mixed_ = 0;
    DspClock written_ = 0;
    std::vector<VoiceSpec> sounding_; // at the end of the latest span
    AudioResult result_ = AudioResult::Ok;
};
