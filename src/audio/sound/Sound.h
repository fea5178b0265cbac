#pragma once

#include <cstddef>
#include <memory>
#include <vector>

// Decoded audio: one plane (mono) or two (left, right) of 32-bit float samples, full scale 1. Whoever makes it fills
// the planes; from then on it travels as a Sound and never changes. Zeros stand before and behind each plane, so that
// an interpolating kernel may read over both ends. [any]
class SoundData
{
public:
    static constexpr std::size_t guardFrames = 16;

    // Silence. channels: 1 or 2; sampleRate: Hz, above 0.
    SoundData(int channels, std::size_t frames, int sampleRate)
        : channels_(channels), sampleRate_(sampleRate), frames_(frames),
          samples_(std::size_t(channels) * (frames + 2 * guardFrames))
    {
    }

    int channels() const { return channels_; }
    int sampleRate() const { return sampleRate_; }
    std::size_t frames() const { return frames_; }
    std::size_t bytes() const { return samples_.size() * sizeof(float); }

    // Frame 0 of a plane; readable from -guardFrames to frames() + guardFrames.
    float *plane(int channel) { return samples_.data() + offset(channel); }
    const float *plane(int channel) const { return samples_.data() + offset(channel); }

private:
    std::size_t offset(int channel) const { return std::size_t(channel) * (frames_ + 2 * guardFrames) + guardFrames; }

    int channels_;
    int sampleRate_;
    std::size_t frames_;
    std::vector<float> samples_;
};

// Shared by caches, voices and threads; freed where the last holder lets go, which is never the mixer.
using Sound = std::shared_ptr<const SoundData>;
