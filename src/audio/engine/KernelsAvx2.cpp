#include "audio/engine/Kernels.h"

#if defined(__x86_64__) || defined(_M_X64)

#include <algorithm>
#include <immintrin.h>

// The functions are compiled for AVX2 and FMA one by one, so that nothing else of the program needs such a processor.
#if defined(__GNUC__)
#define COMPOSER_AVX2 __attribute__((target("avx2,fma")))
#define COMPOSER_AVX2_INLINE __attribute__((target("avx2,fma"), always_inline)) inline
#else
#define COMPOSER_AVX2
#define COMPOSER_AVX2_INLINE inline
#endif

namespace {

constexpr std::size_t lanes = 8;

// The first n of eight lanes.
COMPOSER_AVX2_INLINE __m256i firstLanes(std::size_t n)
{
    return _mm256_cmpgt_epi32(_mm256_set1_epi32(int(n)), _mm256_setr_epi32(0, 1, 2, 3, 4, 5, 6, 7));
}

COMPOSER_AVX2 void add(float *to, const float *from, std::size_t n, float gain)
{
    const __m256 gains = _mm256_set1_ps(gain);
    std::size_t i = 0;
    for (; i + lanes <= n; i += lanes)
        _mm256_storeu_ps(to + i, _mm256_fmadd_ps(gains, _mm256_loadu_ps(from + i), _mm256_loadu_ps(to + i)));
    if (i == n)
        return;
    const __m256i rest = firstLanes(n - i);
    const __m256 sum = _mm256_fmadd_ps(gains, _mm256_maskload_ps(from + i, rest), _mm256_maskload_ps(to + i, rest));
    _mm256_maskstore_ps(to + i, rest, sum);
}

COMPOSER_AVX2 void addFading(float *to, const float *from, std::size_t n, std::int32_t remaining, float slope)
{
    const __m256 slopes = _mm256_set1_ps(slope);
    __m256i left = _mm256_sub_epi32(_mm256_set1_epi32(remaining), _mm256_setr_epi32(0, 1, 2, 3, 4, 5, 6, 7));
    for (std::size_t i = 0; i < n; i += lanes) {
        const __m256i valid = firstLanes(std::min(lanes, n - i));
        const __m256 gains = _mm256_mul_ps(_mm256_cvtepi32_ps(left), slopes);
        const __m256 source = _mm256_maskload_ps(from + i, valid);
        _mm256_maskstore_ps(to + i, valid, _mm256_fmadd_ps(gains, source, _mm256_maskload_ps(to + i, valid)));
        left = _mm256_sub_epi32(left, _mm256_set1_epi32(int(lanes)));
    }
}

COMPOSER_AVX2 void measure(const float *plane, std::size_t n, double &energy, float &peak)
{
    const __m256 sign = _mm256_set1_ps(-0.0F);
    __m256 energies = _mm256_setzero_ps(), peaks = _mm256_setzero_ps();
    for (std::size_t i = 0; i < n; i += lanes) {
        const __m256 samples = _mm256_maskload_ps(plane + i, firstLanes(std::min(lanes, n - i)));
        energies = _mm256_fmadd_ps(samples, samples, energies);
        peaks = _mm256_max_ps(peaks, _mm256_andnot_ps(sign, samples));
    }
    alignas(32) float energyLanes[lanes], peakLanes[lanes];
    _mm256_store_ps(energyLanes, energies);
    _mm256_store_ps(peakLanes, peaks);
    for (std::size_t lane = 0; lane < lanes; ++lane) {
        energy += double(energyLanes[lane]);
        peak = std::max(peak, peakLanes[lane]);
    }
}

// Lane k of the result is the sum of the lanes of rows[k].
COMPOSER_AVX2_INLINE __m256 sumsOfRows(const __m256 *rows)
{
    __m256 pairs[4];
    for (int k = 0; k < 4; ++k)
        pairs[k] = _mm256_add_ps(_mm256_permute2f128_ps(rows[k], rows[k + 4], 0x20),
                                 _mm256_permute2f128_ps(rows[k], rows[k + 4], 0x31));
    return _mm256_hadd_ps(_mm256_hadd_ps(pairs[0], pairs[1]), _mm256_hadd_ps(pairs[2], pairs[3]));
}

// Eight outputs of LiveKernel from the rounded positions at, at + step, …, of which the last ones repeat the position
// `valid - 1`.
template<bool Stereo>
COMPOSER_AVX2_INLINE void interpolateEight(__m256 *sums, Planes<const float> from, const float *table, Position at,
                                           Position step, std::size_t valid)
{
    __m256 left[lanes], right[lanes];
    for (std::size_t k = 0; k < lanes; ++k) {
        const Position position = at + std::min(k, valid - 1) * step;
        const auto frame = std::ptrdiff_t(position >> 32);
        const auto phase = std::size_t(std::uint32_t(position) >> (32 - LiveKernel::phaseBits));
        const __m256 factors = _mm256_loadu_ps(table + phase * LiveKernel::taps);
        left[k] = _mm256_mul_ps(factors, _mm256_loadu_ps(from.left + frame));
        if constexpr (Stereo)
            right[k] = _mm256_mul_ps(factors, _mm256_loadu_ps(from.right + frame));
    }
    sums[0] = sumsOfRows(left);
    if constexpr (Stereo)
        sums[1] = sumsOfRows(right);
}

template<bool Stereo>
COMPOSER_AVX2 void interpolatePlanes(Planes<float> to, Planes<const float> from, std::size_t n, Position at,
                                     Position step)
{
    const float *table = LiveKernel::table();
    constexpr int before = LiveKernel::taps / 2 - 1;
    from.left -= before;
    if constexpr (Stereo)
        from.right -= before;
    at += LiveKernel::halfPhase;
    __m256 sums[2];
    std::size_t i = 0;
    for (; i + lanes <= n; i += lanes, at += lanes * step) {
        interpolateEight<Stereo>(sums, from, table, at, step, lanes);
        _mm256_storeu_ps(to.left + i, sums[0]);
        if constexpr (Stereo)
            _mm256_storeu_ps(to.right + i, sums[1]);
    }
    if (i == n)
        return;
    const __m256i rest = firstLanes(n - i);
    interpolateEight<Stereo>(sums, from, table, at, step, n - i);
    _mm256_maskstore_ps(to.left + i, rest, sums[0]);
    if constexpr (Stereo)
        _mm256_maskstore_ps(to.right + i, rest, sums[1]);
}

void interpolate(Planes<float> to, Planes<const float> from, std::size_t n, Position at, Position step)
{
    if (from.right)
        interpolatePlanes<true>(to, from, n, at, step);
    else
        interpolatePlanes<false>(to, from, n, at, step);
}

// The products of one output of a FineKernel, summed to eight lanes.
COMPOSER_AVX2_INLINE __m256 fineProducts(const float *from, Position position, const FineKernel &kernel, int taps)
{
    constexpr int restBits = 32 - FineKernel::phaseBits;
    const auto fraction = std::uint32_t(position);
    const float *source = from + std::ptrdiff_t(position >> 32);
    const float *factors = kernel.row(fraction >> restBits);
    const float rest = float(int(fraction & ((1U << restBits) - 1))) / float(1U << restBits);
    const __m256 before = _mm256_set1_ps(1 - rest), behind = _mm256_set1_ps(rest);
    __m256 sum = _mm256_setzero_ps();
    for (int k = 0; k < taps; k += int(lanes)) {
        const __m256 factor = _mm256_fmadd_ps(behind, _mm256_loadu_ps(factors + taps + k),
                                              _mm256_mul_ps(before, _mm256_loadu_ps(factors + k)));
        sum = _mm256_fmadd_ps(factor, _mm256_loadu_ps(source + k), sum);
    }
    return sum;
}

COMPOSER_AVX2 void resample(float *to, const float *from, std::size_t n, Position at, Position step,
                            const FineKernel &kernel)
{
    const int taps = kernel.taps();
    from -= taps / 2 - 1;
    __m256 rows[lanes];
    for (std::size_t i = 0; i < n; i += lanes, at += lanes * step) {
        const std::size_t valid = std::min(lanes, n - i);
        for (std::size_t k = 0; k < lanes; ++k)
            rows[k] = fineProducts(from, at + std::min(k, valid - 1) * step, kernel, taps);
        _mm256_maskstore_ps(to + i, firstLanes(valid), sumsOfRows(rows));
    }
}

bool supported()
{
#if defined(__GNUC__)
    return __builtin_cpu_supports("avx2") && __builtin_cpu_supports("fma");
#else
    return false;
#endif
}

} // namespace

const Kernels *avx2Kernels()
{
    static constexpr Kernels kernels{"AVX2", add, addFading, measure, interpolate, resample};
    static const bool usable = supported();
    return usable ? &kernels : nullptr;
}

#else

const Kernels *avx2Kernels()
{
    return nullptr;
}

#endif
