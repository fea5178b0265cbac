#include "audio/sound/Kernels.h"

#if defined(__x86_64__) || defined(_M_X64)

#include "audio/sound/Processor.h"

#include <algorithm>
#include <immintrin.h>

// The functions are compiled for AVX2 and FMA one by one, so that nothing else of the program needs such a processor.
// Microsoft's compiler takes the instructions in any function.
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
    std::size_t i = 0;
    for (; i + lanes <= n; i += lanes) {
        const __m256 gains = _mm256_mul_ps(_mm256_cvtepi32_ps(left), slopes);
        _mm256_storeu_ps(to + i, _mm256_fmadd_ps(gains, _mm256_loadu_ps(from + i), _mm256_loadu_ps(to + i)));
        left = _mm256_sub_epi32(left, _mm256_set1_epi32(int(lanes)));
    }
    if (i == n)
        return;
    const __m256i rest = firstLanes(n - i);
    const __m256 gains = _mm256_mul_ps(_mm256_cvtepi32_ps(left), slopes);
    const __m256 sum = _mm256_fmadd_ps(gains, _mm256_maskload_ps(from + i, rest), _mm256_maskload_ps(to + i, rest));
    _mm256_maskstore_ps(to + i, rest, sum);
}

COMPOSER_AVX2 void measure(const float *plane, std::size_t n, double &energy, float &peak)
{
    const __m256 sign = _mm256_set1_ps(-0.0F);
    // Several sums, since each addition waits for the one before.
    __m256 energies[4] = {}, peaks[4] = {};
    const auto take = [&](__m256 samples, std::size_t k) COMPOSER_AVX2 {
        energies[k] = _mm256_fmadd_ps(samples, samples, energies[k]);
        peaks[k] = _mm256_max_ps(peaks[k], _mm256_andnot_ps(sign, samples));
    };
    std::size_t i = 0;
    for (; i + 4 * lanes <= n; i += 4 * lanes)
        for (std::size_t k = 0; k < 4; ++k)
            take(_mm256_loadu_ps(plane + i + k * lanes), k);
    for (; i < n; i += lanes)
        take(_mm256_maskload_ps(plane + i, firstLanes(std::min(lanes, n - i))), 0);
    alignas(32) float energyLanes[lanes], peakLanes[lanes];
    _mm256_store_ps(energyLanes,
                    _mm256_add_ps(_mm256_add_ps(energies[0], energies[1]), _mm256_add_ps(energies[2], energies[3])));
    _mm256_store_ps(peakLanes, _mm256_max_ps(_mm256_max_ps(peaks[0], peaks[1]), _mm256_max_ps(peaks[2], peaks[3])));
    for (std::size_t lane = 0; lane < lanes; ++lane) {
        energy += double(energyLanes[lane]);
        peak = std::max(peak, peakLanes[lane]);
    }
}

// Lane k of the result is the sum of the lanes of rows[k].
COMPOSER_AVX2_INLINE __m256 sumsOfRows(const __m256 *rows)
{
    __m256 halves[4]; // the four partial sums of row k below, of row k + 4 above
    for (int k = 0; k < 4; ++k)
        halves[k] = _mm256_add_ps(_mm256_blend_ps(rows[k], rows[k + 4], 0xF0),
                                  _mm256_permute2f128_ps(rows[k], rows[k + 4], 0x21));
    const __m256 quarters01 =
        _mm256_add_ps(_mm256_unpacklo_ps(halves[0], halves[1]), _mm256_unpackhi_ps(halves[0], halves[1]));
    const __m256 quarters23 =
        _mm256_add_ps(_mm256_unpacklo_ps(halves[2], halves[3]), _mm256_unpackhi_ps(halves[2], halves[3]));
    return _mm256_add_ps(_mm256_shuffle_ps(quarters01, quarters23, 0x44),
                         _mm256_shuffle_ps(quarters01, quarters23, 0xEE));
}

// Where outputs of LiveKernel lie: of each the source frame below it in the upper half and, in the lower, the offset in
// bytes of the table's row for its fraction. They take the way through memory since single values come out of a vector
// slowly, and many at a time since the processor waits when it loads parts of what it has only just stored.
struct Places
{
    static constexpr std::size_t most = 64;
    alignas(32) std::uint64_t values[most];
};

// Walks along the rounded positions at, at + step, …
class Walk
{
public:
    COMPOSER_AVX2_INLINE Walk(Position at, Position step)
    {
        const auto position = [=](int k) { return static_cast<long long>(at + Position(k) * step); };
        positions0123_ = _mm256_setr_epi64x(position(0), position(1), position(2), position(3));
        positions4567_ = _mm256_setr_epi64x(position(4), position(5), position(6), position(7));
        eightSteps_ = _mm256_set1_epi64x(static_cast<long long>(lanes * step));
    }

    // The next n places; those behind, up to a multiple of eight, repeat the last, so that no frame is read behind it.
    COMPOSER_AVX2_INLINE void next(Places &places, std::size_t n)
    {
        for (std::size_t i = 0; i < n; i += lanes) {
            auto *values = reinterpret_cast<__m256i *>(places.values + i);
            _mm256_store_si256(values, placesOf(positions0123_));
            _mm256_store_si256(values + 1, placesOf(positions4567_));
            positions0123_ = _mm256_add_epi64(positions0123_, eightSteps_);
            positions4567_ = _mm256_add_epi64(positions4567_, eightSteps_);
        }
        std::fill(places.values + n, places.values + (n + lanes - 1) / lanes * lanes, places.values[n - 1]);
    }

private:
    // LiveKernel::rowOf() of the lower halves, times the size of a row.
    static COMPOSER_AVX2_INLINE __m256i placesOf(__m256i positions)
    {
        const __m256i rows =
            _mm256_xor_si256(_mm256_srli_epi32(positions, 20), _mm256_slli_epi32(_mm256_srli_epi32(positions, 27), 1));
        return _mm256_blend_epi32(_mm256_slli_epi32(rows, 5), positions, 0xAA);
    }

    __m256i positions0123_, positions4567_, eightSteps_;
};

template<bool Stereo>
COMPOSER_AVX2_INLINE void interpolateEight(float *left, float *right, Planes<const float> from, const char *table,
                                           const std::uint64_t *places)
{
    __m256 leftProducts[lanes], rightProducts[lanes];
    for (std::size_t k = 0; k < lanes; ++k) {
        const auto frame = places[k] >> 32, row = places[k] & 0xFFFFFFFF;
        const __m256 factors = _mm256_load_ps(reinterpret_cast<const float *>(table + row));
        leftProducts[k] = _mm256_mul_ps(factors, _mm256_loadu_ps(from.left + frame));
        if constexpr (Stereo)
            rightProducts[k] = _mm256_mul_ps(factors, _mm256_loadu_ps(from.right + frame));
    }
    _mm256_storeu_ps(left, sumsOfRows(leftProducts));
    if constexpr (Stereo)
        _mm256_storeu_ps(right, sumsOfRows(rightProducts));
}

template<bool Stereo>
COMPOSER_AVX2 void interpolatePlanes(Planes<float> to, Planes<const float> from, std::size_t n, Position at,
                                     Position step)
{
    const auto *table = reinterpret_cast<const char *>(LiveKernel::table());
    constexpr int before = LiveKernel::taps / 2 - 1;
    from.left -= before;
    if constexpr (Stereo)
        from.right -= before;
    Walk walk(at + LiveKernel::halfPhase, step);
    Places places;
    for (std::size_t done = 0; done < n; done += Places::most) {
        const auto count = std::min(n - done, Places::most);
        walk.next(places, count);
        for (std::size_t i = 0; i < count; i += lanes)
            interpolateEight<Stereo>(to.left + done + i, Stereo ? to.right + done + i : nullptr, from, table,
                                     places.values + i);
    }
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
        const __m256 factor = _mm256_fmadd_ps(behind, _mm256_load_ps(factors + taps + k),
                                              _mm256_mul_ps(before, _mm256_load_ps(factors + k)));
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
        Position position = at;
        for (std::size_t k = 0; k < lanes; ++k) {
            rows[k] = fineProducts(from, position, kernel, taps);
            position += k + 1 < valid ? step : 0;
        }
        _mm256_maskstore_ps(to + i, firstLanes(valid), sumsOfRows(rows));
    }
}

} // namespace

const Kernels *avx2Kernels()
{
    static constexpr Kernels kernels{"AVX2", add, addFading, measure, interpolate, resample};
    static const bool usable = processorHasAvx2();
    return usable ? &kernels : nullptr;
}

#else

const Kernels *avx2Kernels()
{
    return nullptr;
}

#endif
