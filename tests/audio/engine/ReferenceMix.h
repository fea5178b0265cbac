#pragma once

#include "audio/engine/OfflineMix.h"
#include "audio/sound/SincKernel.h"

#include <algorithm>
#include <cmath>

// The mix as its definition reads, in double precision and one sample at a time: what the mixer is measured against.
class ReferenceMix
{
public:
    explicit ReferenceMix(const Mix &mix) : mix_(mix) {}

    // Left and right of one clock.
    std::pair<double, double> at(DspClock clock) const
    {
        double left = 0, right = 0;
        for (const auto &voice : mix_.voices) {
            auto [voiceLeft, voiceRight] = sampleOf(voice, clock);
            if (voice.group != masterGroup)
                applyLevel(mix_.groups[std::size_t(voice.group)], voiceLeft, voiceRight);
            left += voiceLeft;
            right += voiceRight;
        }
        applyLevel(mix_.groups[0], left, right);
        return {left, right};
    }

    // The source around a frame and a fraction, weighted with the design, whose factors are scaled to add up to 1.
    static double weighted(const float *plane, std::ptrdiff_t frame, double fraction, const SincDesign &design)
    {
        double sum = 0, factors = 0;
        for (int k = 0; k < design.taps; ++k) {
            const int offset = k - (design.taps / 2 - 1);
            const double factor = design.at(offset - fraction);
            factors += factor;
            sum += factor * double(plane[frame + offset]);
        }
        return sum / factors;
    }

    // By the live kernel: the fraction is rounded to a 4096th.
    static double interpolated(const float *plane, Position position)
    {
        const auto steps = std::llround(double(position) / double(1 << 20));
        return weighted(plane, std::ptrdiff_t(steps >> 12), double(steps & 4095) / 4096, LiveKernel::design());
    }

private:
    static void applyLevel(GroupLevel level, double &left, double &right)
    {
        left *= double(level.volume) * std::min(1.0, 1.0 - double(level.pan));
        right *= double(level.volume) * std::min(1.0, 1.0 + double(level.pan));
    }

    static std::pair<double, double> sampleOf(const VoiceSpec &voice, DspClock clock)
    {
        if (clock < voice.start || clock >= voice.fadeEnd)
            return {};
        const auto &sound = *voice.sound;
        const auto position = Position(clock - voice.start) * Position(std::llround(voice.ratio * 0x1p32));
        if (position >> 32 >= sound.frames())
            return {};
        double gain = double(voice.gain);
        if (clock >= voice.end)
            gain *= double(voice.fadeEnd - clock) / double(voice.fadeEnd - voice.end);
        const auto side = [&](int channel) {
            const float *plane = sound.plane(channel);
            return gain * (voice.ratio == 1 ? double(plane[position >> 32]) : interpolated(plane, position));
        };
        if (sound.channels() == 1)
            return {side(0) * std::sqrt(0.5), side(0) * std::sqrt(0.5)};
        return {side(0), side(1)};
    }

    const Mix &mix_;
};
