// Apart from the engine's interface, since the mixer asks for them where there is no Qt.
#include "audio/AudioEngine.h"

#include <cmath>

bool isInRange(const VoiceSpec &spec)
{
    constexpr double highestRatio = 4096;
    constexpr DspClock latestStart = DspClock(1) << 62;
    constexpr std::uint64_t mostFrames = std::uint64_t(1) << 31; // so that products with fixed-point steps fit 64 bits
    return spec.sound && spec.sound->frames() < mostFrames && spec.start <= latestStart && spec.end <= spec.fadeEnd &&
           std::isfinite(spec.gain) && spec.ratio >= 1 / highestRatio && spec.ratio <= highestRatio;
}

bool isInRange(GroupLevel level)
{
    return level.volume >= 0 && std::isfinite(level.volume) && std::abs(level.pan) <= 1;
}
