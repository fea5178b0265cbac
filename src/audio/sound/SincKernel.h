#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

// Positions in a sound are 32.32 fixed point: whole frames above, the fraction below. A voice's position is a product,
// start clock to now times the step, so every block, thread and kernel sees the same one.
using Position = std::uint64_t;

// Eight factors of a kernel's table, which lie in one cache line.
struct alignas(32) Factors
{
    float values[8];
};

// A sinc of the given cut-off under a Kaiser window, from which the kernels' tables are made. (J. F. Kaiser,
// "Nonrecursive digital filter design using the I0-sinh window function", 1974.) [any]
struct SincDesign
{
    int taps = 8;      // even; the window's width in source frames
    double cutoff = 1; // where the gain is one half, 1 is half the source's rate
    double beta = 0;   // the window's shape: higher is a deeper stop band and a wider transition
    // t: distance from the centre in source frames. Not scaled: the sum over all taps is whatever it is.
    double at(double t) const;

    // For the stop band to begin at stopEdge (1 is half the source's rate) and to lie attenuation dB down.
    static SincDesign withStopEdge(int taps, double stopEdge, double attenuation);
};

// The kernel for live playback: 8 taps, 4096 phases, the nearest of which is taken. The row of phase p holds the
// factors of the frames from 3 before to 4 behind a position whose fraction is p / 4096; each row adds up to 1. [any]
struct LiveKernel
{
    static constexpr int taps = 8;
    static constexpr int phaseBits = 12;
    static constexpr Position halfPhase = Position(1) << (31 - phaseBits); // added to a position, rounds it
    static SincDesign design();
    static const Factors *table(); // built at the first call

    // Where the table has the row for the lower half of a rounded position. Rows 4096 bytes apart would share one set
    // of the first-level cache, and ratios near a 32nd visit just those; so the upper bits move them apart.
    static std::size_t rowOf(std::uint32_t fraction) { return (fraction >> 20) ^ (fraction >> 27 << 1); }
};

// A kernel for offline work: between its 256 phases the factors are interpolated linearly. [any]
class FineKernel
{
public:
    static constexpr int phaseBits = 8;

    // Such that a source at `ratio` source frames per output frame has no aliases above -100 dB.
    explicit FineKernel(double ratio);
    static SincDesign design(double ratio);

    int taps() const { return taps_; }
    // For a phase: taps() factors of the frames from taps() / 2 - 1 before a position on. Those of the next phase
    // follow.
    const float *row(std::size_t phase) const { return rows_[phase * std::size_t(taps_) / 8].values; }

private:
    int taps_;
    std::vector<Factors> rows_; // small enough for the fastest cache with 32 taps
};
