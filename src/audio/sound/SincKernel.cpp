#include "audio/sound/SincKernel.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace {

// The modified Bessel function of order 0.
double bessel0(double x)
{
    double sum = 1, term = 1;
    for (int k = 1; term > sum * 1e-17; ++k) {
        const double factor = x / (2 * k);
        term *= factor * factor;
        sum += term;
    }
    return sum;
}

// Fills a row: the factors of the taps around a position with that fraction, adding up to 1.
void fillRow(Factors *row, const SincDesign &design, double fraction)
{
    std::vector<double> factors(std::size_t(design.taps));
    double sum = 0;
    for (int k = 0; k < design.taps; ++k) {
        factors[std::size_t(k)] = design.at(k - (design.taps / 2 - 1) - fraction);
        sum += factors[std::size_t(k)];
    }
    for (std::size_t k = 0; k < factors.size(); ++k)
        row[k / 8].values[k % 8] = float(factors[k] / sum);
}

} // namespace

double SincDesign::at(double t) const
{
    const double edge = 2 * t / taps;
    if (std::abs(edge) >= 1)
        return 0;
    const double x = std::numbers::pi * cutoff * t;
    const double sinc = x == 0 ? 1 : std::sin(x) / x;
    return sinc * bessel0(beta * std::sqrt(1 - edge * edge));
}

SincDesign SincDesign::withStopEdge(int taps, double stopEdge, double attenuation)
{
    const double transition = (attenuation - 8) / (2.285 * taps) / std::numbers::pi;
    return {taps, stopEdge - transition / 2, 0.1102 * (attenuation - 8.7)};
}

SincDesign LiveKernel::design()
{
    return {taps, 0.95, 7.0};
}

const Factors *LiveKernel::table()
{
    static const std::vector<Factors> rows = [] {
        std::vector<Factors> filled(1 << phaseBits);
        for (std::uint32_t phase = 0; phase < 1 << phaseBits; ++phase)
            fillRow(&filled[rowOf(phase << (32 - phaseBits))], design(), double(phase) / (1 << phaseBits));
        return filled;
    }();
    return rows.data();
}

SincDesign FineKernel::design(double ratio)
{
    constexpr double attenuation = 100;
    // Nobody hears what the image of the top tenth would add: it lies above the source's own band.
    if (ratio <= 1)
        return SincDesign::withStopEdge(32, 1.1, attenuation);
    // Whole quarters of a semitone, so that a song's ratios share few kernels.
    const double stopEdge = std::exp2(-std::ceil(48 * std::log2(ratio) - 1e-9) / 48);
    const double twoSemitones = std::exp2(2.0 / 12);
    if (ratio <= twoSemitones * 1.0001)
        return SincDesign::withStopEdge(32, stopEdge, attenuation);
    const int taps = 64 * int(std::ceil(std::max(1.0, 0.5 / stopEdge)));
    return SincDesign::withStopEdge(taps, stopEdge, attenuation);
}

FineKernel::FineKernel(double ratio)
{
    const auto chosen = design(ratio);
    taps_ = chosen.taps;
    const auto factorsPerRow = std::size_t(taps_) / 8;
    rows_.resize(((1 << phaseBits) + 1) * factorsPerRow);
    for (std::size_t phase = 0; phase <= 1 << phaseBits; ++phase)
        fillRow(&rows_[phase * factorsPerRow], chosen, double(phase) / (1 << phaseBits));
}
