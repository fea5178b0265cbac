#pragma once

#include "audio/sound/Sound.h"

#include <cmath>
#include <numbers>
#include <random>
#include <span>

// A sine of a frequency in cycles per frame.
inline Sound sineSound(double frequency, std::size_t frames, int sampleRate = 48000, float amplitude = 0.5F)
{
    auto sound = std::make_shared<SoundData>(1, frames, sampleRate);
    for (std::size_t i = 0; i < frames; ++i)
        sound->plane(0)[i] = amplitude * float(std::sin(2 * std::numbers::pi * frequency * double(i)));
    return sound;
}

inline Sound noiseSound(int channels, std::size_t frames, unsigned seed, int sampleRate = 48000)
{
    auto sound = std::make_shared<SoundData>(channels, frames, sampleRate);
    std::minstd_rand random(seed);
    std::uniform_real_distribution<float> sample(-0.5F, 0.5F);
    for (int channel = 0; channel < channels; ++channel)
        for (std::size_t i = 0; i < frames; ++i)
            sound->plane(channel)[i] = sample(random);
    return sound;
}

inline Sound constantSound(int channels, std::size_t frames, float value)
{
    auto sound = std::make_shared<SoundData>(channels, frames, 48000);
    for (int channel = 0; channel < channels; ++channel)
        std::fill_n(sound->plane(channel), frames, value);
    return sound;
}

// dB of a sine of that frequency over everything else in the signal: the sine is fitted in amplitude and phase.
inline double signalToNoise(std::span<const float> signal, double frequency)
{
    double cc = 0, ss = 0, cs = 0, yc = 0, ys = 0;
    const auto wave = [frequency](std::size_t i) {
        const double angle = 2 * std::numbers::pi * frequency * double(i);
        return std::pair(std::cos(angle), std::sin(angle));
    };
    for (std::size_t i = 0; i < signal.size(); ++i) {
        const auto [c, s] = wave(i);
        cc += c * c;
        ss += s * s;
        cs += c * s;
        yc += double(signal[i]) * c;
        ys += double(signal[i]) * s;
    }
    const double determinant = cc * ss - cs * cs;
    const double a = (yc * ss - ys * cs) / determinant, b = (ys * cc - yc * cs) / determinant;
    double noise = 1e-30;
    for (std::size_t i = 0; i < signal.size(); ++i) {
        const auto [c, s] = wave(i);
        noise += std::pow(double(signal[i]) - a * c - b * s, 2);
    }
    return 10 * std::log10((a * yc + b * ys) / noise);
}
