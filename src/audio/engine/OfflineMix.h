#pragma once

#include "audio/AudioEngine.h"

// A part of a timeline: groups[n] is what GroupId{n} does, the master's at 0 (so at least one). Voices of a group are
// added in the order of the list.
struct Mix
{
    std::vector<GroupLevel> groups;
    std::vector<VoiceSpec> voices;
};

// Mixes the clocks from … from + stereo.size() / 2 to interleaved left and right (overwritten): the same bytes that the
// Mixer gives when the voices are played. Voices outside the span cost one comparison each; there may be any number.
// Spans may be mixed at the same time and in any order. [any]
AudioResult mixOffline(const Mix &mix, DspClock from, std::span<float> stereo);
