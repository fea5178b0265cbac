#include "audio/engine/GroupBus.h"

#include <numbers>

namespace {

// What a mono sound gives to each side: equal power.
constexpr float monoShare = float(1 / std::numbers::sqrt2);

// A voice's frames of the block in which it sounds.
struct Stretch
{
    std::size_t offset;     // in the block
    std::size_t held;       // frames at the full gain …
    std::size_t fading;     // … and the frames behind them
    std::int32_t remaining; // from the first fading frame to the fade's end
};

void addPlane(const Kernels &kernels, float *bus, const float *source, const Stretch &stretch, const VoiceShape &voice)
{
    kernels.add(bus + stretch.offset, source, stretch.held, voice.gain);
    if (stretch.fading > 0)
        kernels.addFading(bus + stretch.offset + stretch.held, source + stretch.held, stretch.fading, stretch.remaining,
                          voice.slope);
}

// Brings a plane behind its gain, which goes from one to the other.
void scale(float *to, const float *from, std::size_t frames, float first, float last)
{
    if (first == last) {
        for (std::size_t i = 0; i < frames; ++i)
            to[i] = from[i] * last;
        return;
    }
    const float change = (last - first) / float(frames);
    for (std::size_t i = 0; i < frames; ++i)
        to[i] = from[i] * (first + change * float(i));
}

} // namespace

SideGains sideGains(GroupLevel level)
{
    return {level.volume * std::min(1.0F, 1 - level.pan), level.volume * std::min(1.0F, 1 + level.pan)};
}

void GroupBus::begin(DspClock clock, std::size_t frames)
{
    clock_ = clock;
    frames_ = frames;
    mono_ = stereo_ = false;
}

void GroupBus::prepareStereo()
{
    if (stereo_)
        return;
    stereo_ = true;
    std::fill_n(left_.data(), frames_, 0.0F);
    std::fill_n(right_.data(), frames_, 0.0F);
}

void GroupBus::add(const VoiceShape &voice)
{
    const auto first = std::max(clock_, voice.start);
    const auto stop = std::min(clock_ + frames_, voice.stop());
    if (first >= stop)
        return;
    const auto frames = std::size_t(stop - first);
    const auto held = voice.end > first ? std::size_t(std::min<DspClock>(frames, voice.end - first)) : 0;
    const Stretch stretch{std::size_t(first - clock_), held, frames - held,
                          std::int32_t(held < frames ? voice.fadeEnd - first - held : 0)};

    constexpr Position unchanged = Position(1) << 32;
    const Position played = first - voice.start;
    Planes<const float> source{voice.source.left + played, voice.source.right ? voice.source.right + played : nullptr};
    if (voice.step != unchanged) {
        kernels_.interpolate({scratchLeft_.data(), scratchRight_.data()}, voice.source, frames, played * voice.step,
                             voice.step);
        source = {scratchLeft_.data(), voice.source.right ? scratchRight_.data() : nullptr};
    }
    if (source.right) {
        prepareStereo();
        addPlane(kernels_, left_.data(), source.left, stretch, voice);
        addPlane(kernels_, right_.data(), source.right, stretch, voice);
        return;
    }
    if (!mono_)
        std::fill_n(monoPlane_.data(), frames_, 0.0F);
    mono_ = true;
    addPlane(kernels_, monoPlane_.data(), source.left, stretch, voice);
}

void GroupBus::applyLevel(SideGains from, SideGains to)
{
    if (mono_) {
        scale(monoPlane_.data(), monoPlane_.data(), frames_, monoShare, monoShare);
        if (stereo_) {
            kernels_.add(left_.data(), monoPlane_.data(), frames_, 1);
            kernels_.add(right_.data(), monoPlane_.data(), frames_, 1);
        }
    }
    const bool monoOnly = mono_ && !stereo_;
    stereo_ = !silent();
    if (!stereo_)
        return;
    scale(left_.data(), monoOnly ? monoPlane_.data() : left_.data(), frames_, from.left, to.left);
    scale(right_.data(), monoOnly ? monoPlane_.data() : right_.data(), frames_, from.right, to.right);
}

void GroupBus::add(const GroupBus &finished)
{
    if (finished.silent())
        return;
    prepareStereo();
    kernels_.add(left_.data(), finished.left_.data(), frames_, 1);
    kernels_.add(right_.data(), finished.right_.data(), frames_, 1);
}

void GroupBus::interleave(float *stereo) const
{
    if (silent()) {
        std::fill_n(stereo, 2 * frames_, 0.0F);
        return;
    }
    for (std::size_t i = 0; i < frames_; ++i) {
        stereo[2 * i] = left_[i];
        stereo[2 * i + 1] = right_[i];
    }
}
