#pragma once

#include "audio/AudioEngine.h"

// As AudioEngine::mixSpan(): any span of a timeline of voices, mixed as the Mixer mixes it. Spans may be mixed at the
// same time and in any order. [any]
AudioResult mixOffline(const Mix &mix, DspClock from, std::span<float> stereo);
