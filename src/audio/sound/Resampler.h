#pragma once

#include "audio/sound/AudioResult.h"
#include "audio/sound/SincKernel.h"
#include "audio/sound/Sound.h"

#include <map>
#include <memory>
#include <mutex>

// Makes sounds that play at ratio 1 what their source plays at another ratio, with a FineKernel. Kernels are kept,
// since a song uses few of them. [any]
class Resampler
{
public:
    // Whether the ratio is in 1/16 … 16, and the source not too long.
    static bool canResample(const SoundData &source, double ratio);
    // The result at ratio 1 is the source at `ratio`. At most maxFrames of it are made: what the longest note needs.
    // InvalidArgument when it cannot be.
    AudioResult resample(const SoundData &source, double ratio, std::size_t maxFrames, Sound &sound);

private:
    std::shared_ptr<const FineKernel> kernelFor(double ratio);

    std::mutex mutex_;
    std::map<std::pair<int, double>, std::shared_ptr<const FineKernel>> kernels_; // by taps and cut-off
};
