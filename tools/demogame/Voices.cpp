#include "Voices.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace {

Channels finished(Signal signal, const Note &note, const Finish &how)
{
    Channels channels{std::move(signal)};
    finish(channels, note, how);
    return channels;
}

// A player's vibrato sets in after the note has begun.
double vibrato(double seconds, double hertz, double cents)
{
    return cents * risen(seconds - 0.25, 0.6) * std::sin(2 * pi * hertz * (seconds - 0.25));
}

// How many octaves the note lies above middle C.
double height(const Note &note)
{
    return std::log2(note.frequency / 261.63);
}

// High strings are shorter and die sooner.
double stringDecay(const Note &note, double atMiddleC)
{
    return atMiddleC * std::exp2(-0.55 * height(note));
}

// The air that does not turn into tone: a band around the pitch, loud at the start (the chiff) and soft after it.
Signal breath(const Note &note, double chiff, double steady)
{
    auto air = noise(note);
    bandPass(air, note, std::min(note.frequency * 2, 6000.0), note.frequency * 2.5);
    highPass(air, note, note.frequency * 0.7);
    multiply(air, note, [=](double seconds) {
        return risen(seconds, 0.012) * (chiff * halved(seconds, 0.03) + steady * risen(seconds, 0.1));
    });
    return air;
}

double violinBody(double hertz)
{
    const auto air = resonance(hertz, 285, 45);
    const auto wood = resonance(hertz, 460, 70) + 0.8 * resonance(hertz, 560, 80);
    const auto bridge = 0.9 * resonance(hertz, 2500, 900);
    return (0.3 + air + wood + 0.5 * resonance(hertz, 980, 200) + bridge) * resonance(hertz, 0, 6500);
}

double sungVowel(double hertz, double size)
{
    const auto scaled = hertz / size;
    return 0.06 + resonance(scaled, 700, 130) + 0.55 * resonance(scaled, 1130, 140) +
           0.16 * resonance(scaled, 2750, 220) + 0.1 * resonance(scaled, 3350, 250);
}

Signal sing(const Note &note, double cents, double vibratoHertz, double onset)
{
    HarmonicSeries series;
    const auto size = std::clamp(1 + 0.13 * height(note), 0.9, 1.3);
    series.gain = [=](int n, double hertz, double seconds) {
        return sungVowel(hertz, size) / std::pow(n, 0.8) * risen(seconds, onset + 0.006 * n);
    };
    series.cents = [=](double seconds) { return cents + vibrato(seconds, vibratoHertz, 14); };
    return harmonics(note, series);
}

// One reed among three; the outer two are tuned apart and make the sound float.
Signal reed(const Note &note, double cents)
{
    HarmonicSeries series;
    series.gain = [](int n, double hertz, double seconds) {
        const auto box = 0.3 + 0.7 * resonance(hertz, 900, 700) + 0.5 * resonance(hertz, 2600, 900);
        return box / std::pow(n, 0.75) * risen(seconds, 0.03 + 0.01 * std::min(n, 8));
    };
    series.cents = [=](double) { return cents; };
    return harmonics(note, series);
}

// The pipes that sound on one key, by their harmonic and loudness.
constexpr std::array<std::pair<int, double>, 5> organRanks{{{1, 1.0}, {2, 0.6}, {3, 0.3}, {4, 0.35}, {8, 0.15}}};

double organPipes(int harmonic, double seconds)
{
    double sum = 0;
    for (const auto &[first, loudness] : organRanks)
        if (harmonic % first == 0)
            sum += loudness * std::pow(0.33, harmonic / first - 1) * risen(seconds, 0.07 / std::sqrt(first));
    return sum;
}

Signal organChorus(const Note &note, double cents)
{
    HarmonicSeries series;
    series.most = 24;
    series.gain = [](int n, double, double seconds) { return organPipes(n, seconds); };
    series.cents = [=](double) { return cents; };
    return harmonics(note, series);
}

// The knock of a mallet or a finger, before the bar or the string has its tone.
Signal knock(const Note &note, double hertz, double halfLife)
{
    auto burst = noise(note);
    bandPass(burst, note, hertz, hertz);
    multiply(burst, note, [=](double seconds) { return halved(seconds, halfLife); });
    return burst;
}

} // namespace

Channels accordion(const Note &note)
{
    auto signal = reed(note, 0);
    mix(signal, reed(note, 9), 0.4);
    mix(signal, reed(note, -9), 0.4);
    return finished(signal, note, {.attack = 0.02, .release = 0.25});
}

Channels bass(const Note &note)
{
    auto signal = plucked(note, {.position = 0.22, .softness = 1.25, .damping = 0.4, .decay = stringDecay(note, 3)});
    lowPass(signal, note, 2200);
    mix(signal, knock(note, 900, 0.006), 0.1);
    return finished(signal, note, {.attack = 0.004, .release = 0.12});
}

// Two phase modulated pairs: a bright strike that dies soon, and the clear tone that stays.
Channels bells(const Note &note)
{
    const auto ring = 0.75 * std::exp2(-0.4 * height(note));
    const PhaseModulation strike{.ratio = 3.5, .index = 2.2, .indexHalfLife = 0.35 * ring, .halfLife = 0.6 * ring};
    auto signal = modulated(note, {.ratio = 1.4, .index = 0.5, .indexHalfLife = 0.2, .halfLife = ring});
    mix(signal, modulated(note, strike), 0.7);
    mix(signal, modes(note, {{2.003, 0.3, 0.7 * ring}, {1, 0.5, ring}}), 1);
    return finished(signal, note, {.attack = 0.003, .release = 0.4});
}

Channels choir(const Note &note)
{
    struct Singer
    {
        double cents, vibratoHertz, onset, left, right;
    };
    constexpr std::array<Singer, 4> singers{
        {{-5, 4.9, 0.16, 0.9, 0.3}, {5, 5.3, 0.19, 0.3, 0.9}, {-2, 5.6, 0.22, 0.65, 0.55}, {2, 5.1, 0.14, 0.55, 0.65}}};
    Channels channels(2);
    for (const auto &singer : singers) {
        const auto voice = sing(note, singer.cents, singer.vibratoHertz, singer.onset);
        mix(channels[0], voice, singer.left);
        mix(channels[1], voice, singer.right);
    }
    mix(channels[0], breath(note, 0, 0.02), 1);
    mix(channels[1], breath(note.withSeed(note.seed + 500), 0, 0.02), 1);
    finish(channels, note, {.attack = 0.02, .release = 0.4});
    return channels;
}

Channels fiddle(const Note &note)
{
    HarmonicSeries series;
    series.gain = [](int n, double hertz, double seconds) {
        const auto onset = risen(seconds, 0.05 + 0.008 * std::min(n, 12));
        return violinBody(hertz) / n * onset;
    };
    series.cents = [](double seconds) { return vibrato(seconds, 5.6, 15); };
    auto signal = harmonics(note, series);
    auto bow = noise(note);
    bandPass(bow, note, 2800, 3500);
    multiply(bow, note, [](double seconds) { return risen(seconds, 0.03) * (0.35 + 0.65 * halved(seconds, 0.05)); });
    mix(signal, bow, 0.05);
    return finished(signal, note, {.attack = 0.01, .release = 0.2});
}

Channels flute(const Note &note)
{
    HarmonicSeries series;
    const auto fall = 0.42 * std::exp2(-0.45 * std::max(0.0, height(note)));
    series.gain = [=](int n, double, double seconds) {
        const auto tremolo = 1 + 0.12 * risen(seconds - 0.3, 0.6) * n * std::sin(2 * pi * 4.8 * (seconds - 0.3));
        return std::pow(fall, n - 1) * tremolo * risen(seconds, 0.06 + 0.02 * n);
    };
    series.cents = [](double seconds) { return vibrato(seconds, 4.8, 4); };
    series.most = 7;
    auto signal = harmonics(note, series);
    mix(signal, breath(note, 0.22, 0.07), 1);
    return finished(signal, note, {.attack = 0.01, .release = 0.2});
}

Channels harp(const Note &note)
{
    auto signal = plucked(note, {.position = 0.36, .softness = 1.45, .damping = 0.12, .decay = stringDecay(note, 4.5)});
    mix(signal, knock(note, 400, 0.008), 0.06);
    return finished(signal, note, {.attack = 0.003, .release = 0.3});
}

// Each course has two strings a hair apart, over a small wooden body. One finger plucks both, so they start in step.
Channels lute(const Note &note)
{
    PluckedString string{.position = 0.13, .softness = 0.95, .damping = 0.3, .decay = stringDecay(note, 2.2)};
    auto signal = plucked(note.at(note.frequency * centsToRatio(1)), string);
    string.position = 0.15;
    mix(signal, plucked(note.at(note.frequency * centsToRatio(-1)), string), 1);
    auto body = signal;
    bandPass(body, note, 210, 120);
    mix(signal, body, 0.6);
    mix(signal, knock(note, 1500, 0.004), 0.15);
    return finished(signal, note, {.attack = 0.003, .release = 0.15});
}

Channels marimba(const Note &note)
{
    const auto ring = 0.11 * std::exp2(-0.6 * height(note));
    auto signal = modes(note, {{1, 1, ring}, {3.98, 0.28, ring * 0.28}, {9.6, 0.1, ring * 0.12}});
    mix(signal, knock(note, 700, 0.004), 0.12);
    return finished(signal, note, {.attack = 0.0015, .release = 0.08});
}

// A comb's tooth, held at one end: its overtones lie far from the harmonics and ring briefly.
Channels musicBox(const Note &note)
{
    const auto ring = 0.3 * std::exp2(-0.45 * height(note));
    auto signal =
        modes(note, {{1, 1, ring}, {2, 0.12, 0.5 * ring}, {6.27, 0.25, 0.18 * ring}, {17.55, 0.08, 0.06 * ring}});
    mix(signal, knock(note, 3500, 0.002), 0.08);
    return finished(signal, note, {.attack = 0.004, .release = 0.3});
}

Channels oboe(const Note &note)
{
    HarmonicSeries series;
    series.gain = [](int n, double hertz, double seconds) {
        const auto pipe = 0.12 + resonance(hertz, 1150, 380) + 0.55 * resonance(hertz, 2950, 550);
        return pipe / std::pow(n, 0.35) * risen(seconds, 0.035 + 0.004 * n) * resonance(hertz, 0, 7000);
    };
    series.cents = [](double seconds) { return vibrato(seconds, 5.2, 8); };
    auto signal = harmonics(note, series);
    mix(signal, breath(note, 0.06, 0.012), 1);
    return finished(signal, note, {.attack = 0.01, .release = 0.15});
}

Channels organ(const Note &note)
{
    auto signal = organChorus(note, 1.2);
    mix(signal, organChorus(note, -1.2), 0.8);
    mix(signal, breath(note, 0.25, 0.01), 1);
    return finished(signal, note, {.attack = 0.01, .release = 0.3});
}

// Stopped pipes: the odd harmonics carry the tone. Each note is blown from just below its pitch.
Channels panpipes(const Note &note)
{
    HarmonicSeries series;
    series.gain = [](int n, double, double seconds) {
        constexpr std::array<double, 6> gains{1, 0.04, 0.24, 0.02, 0.07, 0.01};
        return gains[size_t(n) - 1] * risen(seconds, 0.045 + 0.01 * n);
    };
    series.most = 6;
    series.cents = [](double seconds) { return -35 * halved(seconds, 0.02); };
    auto signal = harmonics(note, series);
    mix(signal, breath(note, 0.8, 0.16), 1);
    return finished(signal, note, {.attack = 0.008, .release = 0.2});
}
