#include "audio/engine/GroupMeter.h"

#include "audio/engine/Kernels.h"

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

void GroupMeter::addBlock(const float *left, const float *right, std::size_t frames)
{
    if (read_.load(std::memory_order_acquire)) {
        read_.store(false, std::memory_order_relaxed);
        left_ = right_ = {};
        frames_ = 0;
    }
    frames_ += frames;
    if (left) {
        bestKernels().measure(left, frames, left_.energy, left_.peak);
        bestKernels().measure(right, frames, right_.energy, right_.peak);
    }
    const auto rms = [this](const Side &side) { return float(std::sqrt(side.energy / double(frames_))); };
    rms_.store(packed(rms(left_), rms(right_)), std::memory_order_relaxed);
    peaks_.store(packed(left_.peak, right_.peak), std::memory_order_relaxed);
}

void GroupMeter::reset()
{
    rms_.store(0, std::memory_order_relaxed);
    peaks_.store(0, std::memory_order_relaxed);
    read_.store(true, std::memory_order_release);
}

MeterReading GroupMeter::read()
{
    const auto rms = rms_.load(std::memory_order_relaxed);
    const auto peaks = peaks_.load(std::memory_order_relaxed);
    read_.store(true, std::memory_order_release);
    return {lower(rms), upper(rms), lower(peaks), upper(peaks)};
}
