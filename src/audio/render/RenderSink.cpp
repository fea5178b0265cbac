#include "audio/render/RenderSink.h"

#include <algorithm>
#include <cmath>

RenderSink::RenderSink(DspClock from, DspClock to, float gain, MixedFrames write)
    : from_(from), to_(to), gain_(gain), write_(std::move(write))
{
}

AudioResult RenderSink::take(std::span<const float> stereo)
{
    const auto end = clock_ + stereo.size() / 2;
    const auto first = std::clamp(from_, clock_, end) - clock_;
    const auto last = std::clamp(to_, clock_, end) - clock_;
    clock_ = end;
    if (first >= last)
        return AudioResult::Ok;
    auto part = stereo.subspan(2 * first, 2 * (last - first));
    if (gain_ != 1) {
        scaled_.resize(part.size());
        std::transform(part.begin(), part.end(), scaled_.begin(),
                       [gain = gain_](float sample) { return sample * gain; });
        part = scaled_;
    }
    if (write_)
        return write_(part);
    for (const auto sample : part)
        peak_ = std::max(peak_, std::abs(sample));
    return AudioResult::Ok;
}
