#include "audio/sound/Kernels.h"

#include <algorithm>
#include <cmath>

namespace {

void add(float *to, const float *from, std::size_t n, float gain)
{
    for (std::size_t i = 0; i < n; ++i)
        to[i] += gain * from[i];
}

void addFading(float *to, const float *from, std::size_t n, std::int32_t remaining, float slope)
{
    for (std::size_t i = 0; i < n; ++i)
        to[i] += float(remaining - std::int32_t(i)) * slope * from[i];
}

void measure(const float *plane, std::size_t n, double &energy, float &peak)
{
    // Lanes of their own let the compiler use vectors.
    constexpr std::size_t lanes = 8;
    float energies[lanes] = {}, peaks[lanes] = {};
    for (std::size_t i = 0; i < n; ++i) {
        const float size = std::abs(plane[i]);
        energies[i % lanes] += size * size;
        peaks[i % lanes] = std::max(peaks[i % lanes], size);
    }
    for (std::size_t lane = 0; lane < lanes; ++lane) {
        energy += double(energies[lane]);
        peak = std::max(peak, peaks[lane]);
    }
}

float weighted(const float *from, const float *factors)
{
    return ((from[0] * factors[0] + from[4] * factors[4]) + (from[1] * factors[1] + from[5] * factors[5])) +
           ((from[2] * factors[2] + from[6] * factors[6]) + (from[3] * factors[3] + from[7] * factors[7]));
}

void interpolate(Planes<float> to, Planes<const float> from, std::size_t n, Position at, Position step)
{
    const Factors *table = LiveKernel::table();
    Position position = at + LiveKernel::halfPhase;
    for (std::size_t i = 0; i < n; ++i, position += step) {
        const auto frame = std::ptrdiff_t(position >> 32) - (LiveKernel::taps / 2 - 1);
        const float *factors = table[LiveKernel::rowOf(std::uint32_t(position))].values;
        to.left[i] = weighted(from.left + frame, factors);
        if (from.right)
            to.right[i] = weighted(from.right + frame, factors);
    }
}

void resample(float *to, const float *from, std::size_t n, Position at, Position step, const FineKernel &kernel)
{
    const int taps = kernel.taps();
    constexpr int restBits = 32 - FineKernel::phaseBits;
    Position position = at;
    for (std::size_t i = 0; i < n; ++i, position += step) {
        const float *source = from + std::ptrdiff_t(position >> 32) - (taps / 2 - 1);
        const auto fraction = std::uint32_t(position);
        const float *factors = kernel.row(fraction >> restBits);
        const float rest = float(fraction & ((1U << restBits) - 1)) / float(1U << restBits);
        float sums[4] = {};
        for (int k = 0; k < taps; k += 4)
            for (int lane = 0; lane < 4; ++lane)
                sums[lane] += source[k + lane] * ((1 - rest) * factors[k + lane] + rest * factors[taps + k + lane]);
        to[i] = (sums[0] + sums[1]) + (sums[2] + sums[3]);
    }
}

} // namespace

const Kernels &portableKernels()
{
    static constexpr Kernels kernels{"portable", add, addFading, measure, interpolate, resample};
    return kernels;
}

const Kernels &bestKernels()
{
    static const Kernels &best = avx2Kernels() ? *avx2Kernels() : portableKernels();
    return best;
}
