#include "audio/render/RoundingCarry.h"

#include <algorithm>
#include <cmath>

namespace {

constexpr float steps = 32768;     // of full scale
constexpr float partsOfStep = 254; // half a step fits
constexpr std::size_t mostRemembered = std::size_t(30) * 60 * 48000 * 2;

} // namespace

std::span<const float> RoundingCarry::rounded(std::span<const float> samples)
{
    rounded_.resize(samples.size());
    std::transform(samples.begin(), samples.end(), rounded_.begin(), [this](float sample) { return round(sample); });
    return rounded_;
}

float RoundingCarry::round(float sample)
{
    if (next_ >= mostRemembered)
        return sample;
    if (next_ == carried_.size())
        carried_.push_back(0);
    auto &carried = carried_[next_++];
    const float exact = sample * steps + float(carried) / partsOfStep;
    const float whole = std::nearbyint(exact);
    carried = std::int8_t(std::lround((exact - whole) * partsOfStep));
    return whole / steps;
}
