#pragma once

#include "audio/sound/SincKernel.h"

#include <cstddef>
#include <cstdint>

// One plane or two of a sound or a buffer; `right` is null for mono.
template<class T>
struct Planes
{
    T *left = nullptr;
    T *right = nullptr;
};

// The inner loops of mixing. None allocates, locks or fails. What is computed for a sample does not depend on its place
// in the call, so that cutting a span in two gives the same bits. [any, mixer]
struct Kernels
{
    static constexpr std::size_t interpolateMultiple = 8;

    const char *name;

    // to[i] += gain * from[i]
    void (*add)(float *to, const float *from, std::size_t n, float gain);

    // to[i] += (remaining - i) * slope * from[i]; remaining >= n
    void (*addFading)(float *to, const float *from, std::size_t n, std::int32_t remaining, float slope);

    // Adds the squares of the samples to `energy` and raises `peak` to the largest size among them.
    void (*measure)(const float *plane, std::size_t n, double &energy, float &peak);

    // to[i] = the source at position at + i * step, by LiveKernel. `from` is readable 3 frames before and 4 behind
    // every position; what follows the outputs in `to`, up to a multiple of interpolateMultiple, is overwritten.
    void (*interpolate)(Planes<float> to, Planes<const float> from, std::size_t n, Position at, Position step);

    // The same by a FineKernel, readable half its taps before and behind.
    void (*resample)(float *to, const float *from, std::size_t n, Position at, Position step, const FineKernel &kernel);
};

const Kernels &portableKernels();
const Kernels *avx2Kernels(); // null where the processor lacks AVX2 or FMA
const Kernels &bestKernels(); // of the two
