#include "audio/sound/Resampler.h"

#include "audio/sound/Kernels.h"

#include <algorithm>
#include <cmath>
#include <vector>

namespace {

constexpr double highestRatio = 16;
constexpr int mostTapsKept = 128; // up to two octaves; there are a hundred such kernels, 36 MB of them

} // namespace

std::shared_ptr<const FineKernel> Resampler::kernelFor(double ratio)
{
    const auto design = FineKernel::design(ratio);
    if (design.taps > mostTapsKept)
        return std::make_shared<FineKernel>(ratio);
    const std::lock_guard lock(mutex_);
    auto &kernel = kernels_[{design.taps, design.cutoff}];
    if (!kernel)
        kernel = std::make_shared<FineKernel>(ratio);
    return kernel;
}

bool Resampler::canResample(const SoundData &source, double ratio)
{
    return ratio >= 1 / highestRatio && ratio <= highestRatio && source.frames() >> 31 == 0;
}

AudioResult Resampler::resample(const SoundData &source, double ratio, std::size_t maxFrames, Sound &sound)
{
    if (!canResample(source, ratio))
        return AudioResult::InvalidArgument;
    const auto step = Position(std::llround(std::ldexp(ratio, 32)));
    const auto whole = ((Position(source.frames()) << 32) + step - 1) / step;
    const auto frames = std::size_t(std::min<Position>(whole, maxFrames));
    const auto kernel = kernelFor(ratio);

    // What the kernel can reach, with silence before and behind the source.
    const auto margin = std::size_t(kernel->taps());
    const auto needed = std::min<std::size_t>(source.frames(), std::size_t((frames * step) >> 32) + margin);
    std::vector<float> padded(needed + 2 * margin);

    auto result = std::make_shared<SoundData>(source.channels(), frames, source.sampleRate());
    for (int channel = 0; channel < source.channels(); ++channel) {
        std::copy_n(source.plane(channel), needed, padded.data() + margin);
        bestKernels().resample(result->plane(channel), padded.data() + margin, frames, 0, step, *kernel);
    }
    sound = std::move(result);
    return AudioResult::Ok;
}
