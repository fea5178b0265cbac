#include "Synthesis.h"

#include <algorithm>
#include <cmath>

namespace {

constexpr double highestShare = 0.45;
// Gains are asked for once a block and run straight in between.
constexpr size_t blockFrames = 64;

// The sum of all harmonics of one phase. sin(n p) follows from the two before it, so a frame costs two calls of the
// mathematics library however many harmonics there are.
double sumOfHarmonics(double phase, const std::vector<double> &gains)
{
    const auto twice = 2 * std::cos(phase);
    double before = 0;
    double current = std::sin(phase);
    double sum = 0;
    for (const auto gain : gains) {
        sum += gain * current;
        before = std::exchange(current, twice * current - before);
    }
    return sum;
}

class HarmonicSource
{
public:
    HarmonicSource(const Note &note, const HarmonicSeries &series)
        : note_(note), series_(series), gains_(gainsAt(0)), steps_(gains_.size())
    {
    }

    Signal run()
    {
        Signal signal(note_.frames());
        for (size_t begin = 0; begin < signal.size(); begin += blockFrames)
            runBlock(&signal[begin], begin, std::min(blockFrames, signal.size() - begin));
        return signal;
    }

private:
    double frequencyAt(double seconds) const { return note_.frequency * centsToRatio(series_.cents(seconds)); }

    std::vector<double> gainsAt(double seconds) const
    {
        // The count follows the written pitch, not the moving one, so that no harmonic comes and goes.
        const auto fitting = int(highestShare * note_.rate / note_.frequency);
        std::vector<double> gains(size_t(std::clamp(fitting, 1, series_.most)));
        const auto frequency = frequencyAt(seconds);
        for (size_t i = 0; i < gains.size(); ++i)
            gains[i] = series_.gain(int(i) + 1, frequency * double(i + 1), seconds);
        return gains;
    }

    void runBlock(double *out, size_t begin, size_t frames)
    {
        const auto next = gainsAt(double(begin + blockFrames) / note_.rate);
        for (size_t i = 0; i < gains_.size(); ++i)
            steps_[i] = (next[i] - gains_[i]) / double(blockFrames);
        for (size_t i = 0; i < frames; ++i) {
            out[i] = sumOfHarmonics(phase_, gains_);
            phase_ = std::fmod(phase_ + note_.radians(frequencyAt(double(begin + i) / note_.rate)), 2 * pi);
            std::transform(gains_.begin(), gains_.end(), steps_.begin(), gains_.begin(), std::plus<>());
        }
    }

    const Note &note_;
    const HarmonicSeries &series_;
    std::vector<double> gains_;
    std::vector<double> steps_;
    double phase_ = 0;
};

// The delay of the whole loop in frames is the period; the damping filter's share and a fraction are made up for by
// an allpass, whose coefficient is exact at the fundamental.
struct LoopTuning
{
    size_t frames;
    double allPass;
    double gain;

    LoopTuning(const Note &note, const PluckedString &string)
    {
        const auto w = note.radians(note.frequency);
        const auto real = 1 - string.damping + string.damping * std::cos(w);
        const auto imaginary = string.damping * std::sin(w);
        const auto rest = 2 * pi / w - std::atan2(imaginary, real) / w;
        frames = size_t(rest - 0.3);
        const auto fraction = rest - double(frames);
        allPass = std::sin((1 - fraction) * w / 2) / std::sin((1 + fraction) * w / 2);
        const auto wanted = std::pow(10, -3 / (note.frequency * string.decay));
        gain = std::min(wanted / std::hypot(real, imaginary), 0.99999);
    }
};

// The shape that a finger leaves: every harmonic has its gain by the rule of the plucking point and a random phase.
// Shapes of plain noise would give each note a timbre of its own.
Signal pluckedShape(size_t frames, const Note &note, const PluckedString &string)
{
    Signal shape(frames);
    Noise random(note.seed);
    const auto most = std::min(double(frames) / 2, 12000 / note.frequency);
    for (int n = 1; n <= int(most); ++n) {
        const auto gain = std::sin(pi * n * string.position) / std::pow(n, string.softness);
        const auto phase = pi * random.next();
        for (size_t i = 0; i < frames; ++i)
            shape[i] += gain * std::sin(2 * pi * double(i) * n / double(frames) + phase);
    }
    return shape;
}

} // namespace

Signal harmonics(const Note &note, const HarmonicSeries &series)
{
    return HarmonicSource(note, series).run();
}

Signal plucked(const Note &note, const PluckedString &string)
{
    const LoopTuning tuning(note, string);
    auto line = pluckedShape(tuning.frames, note, string);
    Signal signal(note.frames());
    double before = 0, dampedBefore = 0, tuned = 0;
    for (size_t i = 0; i < signal.size(); ++i) {
        auto &slot = line[i % line.size()];
        const auto damped = (1 - string.damping) * slot + string.damping * before;
        tuned = tuning.allPass * (damped - tuned) + dampedBefore;
        dampedBefore = damped;
        before = signal[i] = slot;
        slot = tuning.gain * tuned;
    }
    return signal;
}

Signal modes(const Note &note, const std::vector<Mode> &list)
{
    Signal signal(note.frames());
    for (const auto &mode : list) {
        const auto hertz = note.frequency * mode.ratio;
        if (hertz > highestShare * note.rate)
            continue;
        const auto w = note.radians(hertz);
        for (size_t i = 0; i < signal.size(); ++i)
            signal[i] += mode.gain * halved(double(i) / note.rate, mode.halfLife) * std::sin(w * double(i));
    }
    return signal;
}

Signal modulated(const Note &note, const PhaseModulation &modulation)
{
    Signal signal(note.frames());
    const auto w = note.radians(note.frequency);
    for (size_t i = 0; i < signal.size(); ++i) {
        const auto seconds = double(i) / note.rate;
        const auto index = modulation.index * halved(seconds, modulation.indexHalfLife);
        const auto bend = index * std::sin(w * modulation.ratio * double(i));
        signal[i] = halved(seconds, modulation.halfLife) * std::sin(w * double(i) + bend);
    }
    return signal;
}
