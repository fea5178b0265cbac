#include "Synthesis.h"

#include <algorithm>
#include <cmath>

namespace {

// Nothing is sounded above this share of the sample rate, so that nothing folds back.
constexpr double highestShare = 0.45;

// A digital biquad in its direct form.
struct Biquad
{
    double b0, b1, b2, a0, a1, a2;

    void run(Signal &signal) const
    {
        double x1 = 0, x2 = 0, y1 = 0, y2 = 0;
        for (auto &value : signal) {
            const auto y = (b0 * value + b1 * x1 + b2 * x2 - a1 * y1 - a2 * y2) / a0;
            x2 = std::exchange(x1, value);
            y2 = std::exchange(y1, y);
            value = y;
        }
    }
};

double usableRadians(const Note &note, double hertz)
{
    return note.radians(std::min(hertz, highestShare * note.rate));
}

// The width of a filter without a hump at its corner.
double flat(double radians)
{
    return std::sin(radians) / std::sqrt(2.0);
}

double peakOf(const Channels &channels)
{
    double peak = 0;
    for (const auto &signal : channels)
        for (const auto value : signal)
            peak = std::max(peak, std::abs(value));
    return peak;
}

size_t audibleFrames(const Channels &channels, double threshold)
{
    size_t frames = 0;
    for (const auto &signal : channels) {
        const auto last =
            std::find_if(signal.rbegin(), signal.rend(), [=](double v) { return std::abs(v) > threshold; });
        frames = std::max(frames, size_t(signal.rend() - last));
    }
    return frames;
}

} // namespace

double Note::radians(double hertz) const
{
    return 2 * pi * hertz / rate;
}

Note Note::at(double hertz) const
{
    auto copy = *this;
    copy.frequency = hertz;
    return copy;
}

Note Note::withSeed(quint32 newSeed) const
{
    auto copy = *this;
    copy.seed = newSeed;
    return copy;
}

double centsToRatio(double cents)
{
    return std::exp2(cents / 1200);
}

Signal noise(const Note &note)
{
    Noise source(note.seed);
    Signal signal(note.frames());
    std::generate(signal.begin(), signal.end(), [&] { return source.next(); });
    return signal;
}

double halved(double seconds, double halfLife)
{
    return std::exp2(-seconds / halfLife);
}

double risen(double seconds, double length)
{
    if (seconds >= length)
        return 1;
    return 0.5 - 0.5 * std::cos(pi * std::max(0.0, seconds) / length);
}

void mix(Signal &into, const Signal &from, double gain)
{
    into.resize(std::max(into.size(), from.size()));
    for (size_t i = 0; i < from.size(); ++i)
        into[i] += gain * from[i];
}

void multiply(Signal &signal, const Note &note, const std::function<double(double)> &gain)
{
    for (size_t i = 0; i < signal.size(); ++i)
        signal[i] *= gain(double(i) / note.rate);
}

void fadeIn(Signal &signal, size_t frames)
{
    for (size_t i = 0; i < std::min(frames, signal.size()); ++i)
        signal[i] *= risen(double(i), double(frames));
}

void fadeOut(Signal &signal, size_t frames)
{
    for (size_t i = 0; i < std::min(frames, signal.size()); ++i)
        signal[signal.size() - 1 - i] *= risen(double(i), double(frames));
}

void lowPass(Signal &signal, const Note &note, double hertz)
{
    const auto w = usableRadians(note, hertz);
    const auto c = std::cos(w);
    Biquad{(1 - c) / 2, 1 - c, (1 - c) / 2, 1 + flat(w), -2 * c, 1 - flat(w)}.run(signal);
}

void highPass(Signal &signal, const Note &note, double hertz)
{
    const auto w = usableRadians(note, hertz);
    const auto c = std::cos(w);
    Biquad{(1 + c) / 2, -1 - c, (1 + c) / 2, 1 + flat(w), -2 * c, 1 - flat(w)}.run(signal);
}

void bandPass(Signal &signal, const Note &note, double hertz, double width)
{
    const auto w = usableRadians(note, hertz);
    const auto half = std::sin(w) * width / (2 * hertz);
    Biquad{half, 0, -half, 1 + half, -2 * std::cos(w), 1 - half}.run(signal);
}

double resonance(double hertz, double centre, double width)
{
    const auto distance = (hertz - centre) / width;
    return 1 / (1 + distance * distance);
}

void finish(Channels &channels, const Note &note, const Finish &how)
{
    for (auto &signal : channels)
        highPass(signal, note, 15);
    const auto audible = audibleFrames(channels, peakOf(channels) / 1000);
    const auto release = size_t(how.release * note.rate);
    const auto frames = std::max(audible + release, size_t(how.shortest * note.rate));
    for (auto &signal : channels) {
        signal.resize(std::min(frames, signal.size()));
        fadeIn(signal, size_t(how.attack * note.rate));
        fadeOut(signal, release);
    }
    const auto gain = how.peak / std::max(peakOf(channels), 1e-9);
    for (auto &signal : channels)
        for (auto &value : signal)
            value *= gain;
}
