#include "audio/engine/GroupMeter.h"

#include <bit>
#include <cmath>

namespace {

std::uint64_t packed(float left, float right)
{
    return std::uint64_t(std::bit_cast<std::uint32_t>(right)) << 32 | std::bit_cast<std::uint32_t>(left);
}

float lower(std::uint64_t pair)
{
    return std::bit_cast<float>(std::uint32_t(pair));
}
float upper(std::uint64_t pair)
{
    return std::bit_cast<float>(std::uint32_t(pair >> 32));
}

} // namespace

void GroupMeter::addBlock(const BlockLevels &levels, std::size_t frames)
{
    if (read_.load(std::memory_order_acquire)) {
        read_.store(false, std::memory_order_relaxed);
        levels_ = {};
        frames_ = 0;
    }
    frames_ += frames;
    levels_.leftEnergy += levels.leftEnergy;
    levels_.rightEnergy += levels.rightEnergy;
    levels_.leftPeak = std::max(levels_.leftPeak, levels.leftPeak);
    levels_.rightPeak = std::max(levels_.rightPeak, levels.rightPeak);
    const double share = 1 / double(frames_);
    powers_.store(packed(float(levels_.leftEnergy * share), float(levels_.rightEnergy * share)),
                  std::memory_order_relaxed);
    peaks_.store(packed(levels_.leftPeak, levels_.rightPeak), std::memory_order_relaxed);
}

void GroupMeter::reset()
{
    powers_.store(0, std::memory_order_relaxed);
    peaks_.store(0, std::memory_order_relaxed);
    read_.store(true, std::memory_order_release);
}

MeterReading GroupMeter::read()
{
    const auto powers = powers_.load(std::memory_order_relaxed);
    const auto peaks = peaks_.load(std::memory_order_relaxed);
    read_.store(true, std::memory_order_release);
    return {std::sqrt(lower(powers)), std::sqrt(upper(powers)), lower(peaks), upper(peaks)};
}
