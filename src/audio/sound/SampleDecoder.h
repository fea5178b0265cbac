#pragma once

#include "audio/sound/AudioResult.h"
#include "audio/sound/Sound.h"

#include <cstddef>
#include <limits>
#include <optional>
#include <span>

constexpr std::size_t wholeSample = std::numeric_limits<std::size_t>::max();

// What a sample becomes when it is decoded, as its header has it.
struct SampleSize
{
    int channels = 0;   // 1 or 2
    int sampleRate = 0; // Hz, above 0
    std::size_t frames = 0;

    std::size_t bytes(std::size_t mostFrames = wholeSample) const
    {
        return (mostFrames < frames ? mostFrames : frames) * std::size_t(channels) * sizeof(float);
    }
};

// Reads the header alone; a length that it does not tell is the longest that decodeSample() takes. None when it is no
// sample. [any]
std::optional<SampleSize> measureSample(std::span<const std::byte> bytes);

// Decodes a sample file up to so many frames; more than two channels become the first two. Of a file that breaks off,
// what was read. Samples that are no numbers become 0, larger ones than 16 times full scale are limited. A file that is
// too long as a whole is not decoded in part. [any]
AudioResult decodeSample(std::span<const std::byte> bytes, std::size_t mostFrames, Sound &sound);
