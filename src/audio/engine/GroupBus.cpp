#include "audio/engine/GroupBus.h"

#include <numbers>

#if defined(__GNUC__)
#define COMPOSER_PREFETCH(address) __builtin_prefetch(address)
#else
#define COMPOSER_PREFETCH(address) static_cast<void>(address)
#endif

namespace {

// What a mono sound gives to each side: equal power.
constexpr float monoShare = float(1 / std::numbers::sqrt2);

constexpr DspClock riseFrames = 240; // 5 ms at 48 kHz: what a voice that begins inside its sound takes to be there

constexpr Position unchanged = Position(1) << 32; // the step of ratio 1

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

// Adds a plane with a gain that goes from one to the other.
void addGliding(const Kernels &kernels, float *to, const float *from, std::size_t frames, float first, float last)
{
    if (first == last) {
        kernels.add(to, from, frames, last);
        return;
    }
    const float change = (last - first) / float(frames);
    for (std::size_t i = 0; i < frames; ++i)
        to[i] += from[i] * (first + change * float(i));
}

// The first lines; the processor notices what follows by itself.
void prefetchPlane(const float *plane, std::uint64_t begin, std::uint64_t end)
{
    constexpr std::uint64_t framesPerLine = 64 / sizeof(float), mostFrames = 256;
    end = std::min(end, begin + mostFrames);
    for (auto frame = begin; frame < end; frame += framesPerLine)
        COMPOSER_PREFETCH(plane + frame);
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

void GroupBus::prefetch(const VoiceShape &voice) const
{
    const auto first = std::max(clock_, voice.start);
    const auto stop = std::min(clock_ + frames_, voice.stop());
    if (first >= stop)
        return;
    const auto begin = ((first - voice.start) * voice.step) >> 32, end = ((stop - voice.start) * voice.step) >> 32;
    prefetchPlane(voice.source.left, begin, end);
    if (voice.source.right)
        prefetchPlane(voice.source.right, begin, end);
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

    const Position played = first - voice.start;
    Planes<const float> source = voice.source;
    if (voice.step == unchanged) {
        source.left += played;
        source.right += source.right ? played : 0;
    } else {
        kernels_.interpolate({scratchLeft_.data(), scratchRight_.data()}, source, frames, played * voice.step,
                             voice.step);
        source = {scratchLeft_.data(), source.right ? scratchRight_.data() : nullptr};
    }
    if (voice.entered != 0 && first < voice.entered + riseFrames)
        source = risen(source, frames, first - voice.entered);
    if (source.right) {
        const auto to = sides();
        addPlane(kernels_, to.left, source.left, stretch, voice);
        addPlane(kernels_, to.right, source.right, stretch, voice);
        return;
    }
    if (!mono_)
        std::fill_n(monoPlane_.data(), frames_, 0.0F);
    mono_ = true;
    addPlane(kernels_, monoPlane_.data(), source.left, stretch, voice);
}

// A copy that comes out of silence, whose first frame is so far into the rise.
Planes<const float> GroupBus::risen(Planes<const float> source, std::size_t frames, DspClock risenFrames)
{
    const auto rise = [=](float *to, const float *from) {
        for (std::size_t i = 0; i < frames; ++i)
            to[i] = from[i] * std::min(1.0F, float(risenFrames + i) / float(riseFrames));
    };
    rise(scratchLeft_.data(), source.left);
    if (source.right)
        rise(scratchRight_.data(), source.right);
    return {scratchLeft_.data(), source.right ? scratchRight_.data() : nullptr};
}

Planes<float> GroupBus::sides()
{
    if (!stereo_) {
        stereo_ = true;
        std::fill_n(left_.data(), frames_, 0.0F);
        std::fill_n(right_.data(), frames_, 0.0F);
    }
    return {left_.data(), right_.data()};
}

void GroupBus::mixInto(Planes<float> to, SideGains first, SideGains last) const
{
    const auto mix = [&](const float *left, const float *right, float share) {
        addGliding(kernels_, to.left, left, frames_, first.left * share, last.left * share);
        addGliding(kernels_, to.right, right, frames_, first.right * share, last.right * share);
    };
    if (mono_)
        mix(monoPlane_.data(), monoPlane_.data(), monoShare);
    if (stereo_)
        mix(left_.data(), right_.data(), 1);
}

BlockLevels GroupBus::measure(SideGains gains)
{
    BlockLevels levels;
    if (mono_ && !stereo_) {
        kernels_.measure(monoPlane_.data(), frames_, levels.leftEnergy, levels.leftPeak);
        levels.rightEnergy = levels.leftEnergy;
        levels.rightPeak = levels.leftPeak;
        gains = {gains.left * monoShare, gains.right * monoShare};
    } else if (stereo_) {
        foldMono();
        kernels_.measure(left_.data(), frames_, levels.leftEnergy, levels.leftPeak);
        kernels_.measure(right_.data(), frames_, levels.rightEnergy, levels.rightPeak);
    }
    levels.leftEnergy *= double(gains.left) * double(gains.left);
    levels.rightEnergy *= double(gains.right) * double(gains.right);
    levels.leftPeak *= gains.left;
    levels.rightPeak *= gains.right;
    return levels;
}

void GroupBus::foldMono()
{
    if (!mono_)
        return;
    const auto to = sides();
    kernels_.add(to.left, monoPlane_.data(), frames_, monoShare);
    kernels_.add(to.right, monoPlane_.data(), frames_, monoShare);
    mono_ = false;
}

void GroupBus::output(float *stereo, SideGains first, SideGains last)
{
    foldMono();
    const auto from = sides();
    if (first == last) {
        for (std::size_t i = 0; i < frames_; ++i) {
            stereo[2 * i] = from.left[i] * last.left;
            stereo[2 * i + 1] = from.right[i] * last.right;
        }
        return;
    }
    const float leftChange = (last.left - first.left) / float(frames_);
    const float rightChange = (last.right - first.right) / float(frames_);
    for (std::size_t i = 0; i < frames_; ++i) {
        stereo[2 * i] = from.left[i] * (first.left + leftChange * float(i));
        stereo[2 * i + 1] = from.right[i] * (first.right + rightChange * float(i));
    }
}
