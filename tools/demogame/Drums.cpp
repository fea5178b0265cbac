#include "Drums.h"

#include <cmath>

namespace {

Signal shapedNoise(const Note &note, double lowest, double highest, double halfLife)
{
    auto signal = noise(note);
    highPass(signal, note, lowest);
    lowPass(signal, note, highest);
    multiply(signal, note, [=](double seconds) { return halved(seconds, halfLife); });
    return signal;
}

// A skin: the blow stretches it, so its pitch starts `drop` cents high and settles.
Signal skin(const Note &note, double drop, double halfLife)
{
    HarmonicSeries series;
    series.most = 1;
    series.gain = [=](int, double, double seconds) { return halved(seconds, halfLife); };
    series.cents = [=](double seconds) { return drop * halved(seconds, 0.018); };
    return harmonics(note, series);
}

Signal kick(const Note &note)
{
    auto signal = skin(note, 2400, 0.075);
    mix(signal, shapedNoise(note, 800, 5000, 0.004), 0.25);
    return signal;
}

Signal tom(const Note &note)
{
    auto signal = skin(note, 700, 0.1);
    mix(signal, modes(note, {{1.59, 0.35, 0.05}, {2.14, 0.2, 0.035}}), 1);
    mix(signal, shapedNoise(note, 300, 4000, 0.012), 0.25);
    return signal;
}

Signal snare(const Note &note)
{
    auto signal = skin(note, 500, 0.045);
    mix(signal, modes(note, {{1.83, 0.5, 0.03}}), 1);
    mix(signal, shapedNoise(note, 1500, 11000, 0.05), 0.75);
    mix(signal, shapedNoise(note.withSeed(note.seed + 1), 3000, 14000, 0.008), 0.6);
    return signal;
}

Signal handDrum(const Note &note)
{
    auto signal = skin(note, 350, 0.055);
    mix(signal, modes(note, {{2.3, 0.3, 0.02}, {3.6, 0.15, 0.012}}), 1);
    mix(signal, shapedNoise(note, 1000, 6000, 0.004), 0.5);
    return signal;
}

Signal timbale(const Note &note)
{
    return modes(note, {{1, 1, 0.09}, {1.59, 0.6, 0.07}, {2.29, 0.5, 0.06}, {3.16, 0.35, 0.05}, {5.1, 0.2, 0.03}});
}

Signal clap(const Note &note)
{
    auto signal = shapedNoise(note, 700, 7000, 10);
    bandPass(signal, note, note.frequency, note.frequency * 1.2);
    multiply(signal, note, [](double seconds) {
        const auto hand = seconds < 0.033 ? std::fmod(seconds, 0.011) : seconds - 0.033;
        return halved(hand, seconds < 0.033 ? 0.0035 : 0.035);
    });
    return signal;
}

Signal wood(const Note &note)
{
    auto signal = modes(note, {{1, 1, 0.014}, {1.51, 0.5, 0.01}, {2.7, 0.35, 0.006}});
    mix(signal, shapedNoise(note, 1200, 9000, 0.002), 0.5);
    return signal;
}

// Metal plates ring in many modes that fit no series; a dense comb of them under bright noise.
Signal metal(const Note &note, double halfLife, double brightness)
{
    Noise random(note.seed + 77);
    std::vector<Mode> partials;
    for (int i = 0; i < 24; ++i) {
        const auto ratio = 1 + 0.43 * i + 0.2 * random.next();
        partials.push_back({ratio, 0.06 + 0.04 * random.next(), halfLife * (1 - 0.02 * i)});
    }
    auto signal = modes(note, partials);
    mix(signal, shapedNoise(note, 4500, 15000, halfLife * 0.8), brightness);
    return signal;
}

Signal hat(const Note &note)
{
    auto signal = metal(note, note.seconds / 9, 0.55);
    highPass(signal, note, 5000);
    return signal;
}

// The noise of a crash swells for an instant before it falls.
Signal crash(const Note &note)
{
    auto signal = metal(note, note.seconds / 8, 0.5);
    highPass(signal, note, 900);
    mix(signal, shapedNoise(note.withSeed(note.seed + 1), 2000, 9000, note.seconds / 16), 0.35);
    multiply(signal, note, [](double seconds) { return 0.6 + 0.4 * risen(seconds, 0.02); });
    return signal;
}

Signal ride(const Note &note)
{
    auto signal = metal(note, note.seconds / 6, 0.1);
    highPass(signal, note, 600);
    mix(signal, wood(note.at(3100)), 0.25);
    return signal;
}

Signal rideBell(const Note &note)
{
    const auto ring = note.seconds / 7;
    return modes(
        note,
        {{1, 1, ring}, {1.51, 0.8, ring}, {2.32, 0.5, 0.8 * ring}, {3.9, 0.4, 0.5 * ring}, {5.6, 0.2, 0.3 * ring}});
}

// Two bars of unrelated pitch; bells of cattle and of the samba.
Signal cowbell(const Note &note)
{
    return modes(note, {{1, 1, 0.06}, {1.504, 0.9, 0.055}, {2.63, 0.3, 0.02}, {3.9, 0.25, 0.015}, {5.2, 0.12, 0.01}});
}

Signal jingles(const Note &note)
{
    auto signal = metal(note, 0.05, 0.7);
    highPass(signal, note, 4000);
    multiply(signal, note, [](double seconds) { return 0.6 + 0.4 * std::cos(2 * pi * 31 * seconds); });
    return signal;
}

Signal shaker(const Note &note)
{
    auto signal = noise(note);
    bandPass(signal, note, note.frequency, note.frequency * 0.6);
    multiply(signal, note,
             [](double seconds) { return risen(seconds, 0.018) * halved(std::max(0.0, seconds - 0.018), 0.018); });
    return signal;
}

// A stick drawn over ridges, faster at the end.
Signal scraper(const Note &note)
{
    auto signal = noise(note);
    bandPass(signal, note, note.frequency, note.frequency * 0.5);
    multiply(signal, note, [=](double seconds) {
        const auto way = seconds / note.seconds;
        const auto ridge = std::fmod(note.seconds * 70 * way * (1 + 0.5 * way), 1.0);
        return risen(seconds, 0.01) * halved(ridge, 0.25) * (1 - way);
    });
    return signal;
}

Signal triangleMuted(const Note &note)
{
    return modes(note, {{1, 0.8, 0.03}, {2.71, 1, 0.025}, {5.2, 0.5, 0.015}});
}

Signal triangleOpen(const Note &note)
{
    return modes(note, {{1, 0.7, 0.3}, {1.003, 0.3, 0.28}, {2.71, 1, 0.22}, {2.717, 0.4, 0.2}, {5.2, 0.4, 0.12}});
}

} // namespace

const std::vector<Drum> &drumKit()
{
    static const std::vector<Drum> kit{
        {35, "kick-deep", kick, 46, 0.6, 0.7, 0},
        {36, "kick", kick, 55, 0.5, 0.7, 0},
        {37, "side-stick", wood, 620, 0.15, 0.5, -0.1},
        {38, "snare", snare, 185, 0.45, 0.65, -0.1},
        {39, "clap", clap, 1300, 0.35, 0.55, 0.1},
        {40, "snare-bright", snare, 225, 0.4, 0.65, -0.1},
        {41, "tom-floor-low", tom, 78, 0.8, 0.65, 0.45},
        {42, "hat-closed", hat, 920, 0.22, 0.35, -0.35},
        {43, "tom-floor-high", tom, 94, 0.75, 0.65, 0.35},
        {44, "hat-pedal", hat, 860, 0.28, 0.3, -0.35},
        {45, "tom-low", tom, 112, 0.7, 0.65, 0.2},
        {46, "hat-open", hat, 920, 1.1, 0.38, -0.35},
        {47, "tom-mid-low", tom, 132, 0.65, 0.65, 0.05},
        {48, "tom-mid-high", tom, 156, 0.6, 0.65, -0.1},
        {49, "crash", crash, 520, 2.2, 0.55, -0.5},
        {50, "tom-high", tom, 185, 0.55, 0.65, -0.25},
        {51, "ride", ride, 610, 1.6, 0.4, 0.5},
        {52, "china", crash, 390, 1.4, 0.5, 0.55},
        {53, "ride-bell", rideBell, 830, 1.4, 0.4, 0.5},
        {54, "tambourine", jingles, 1450, 0.45, 0.4, 0.3},
        {55, "splash", crash, 760, 0.9, 0.45, -0.3},
        {56, "cowbell", cowbell, 562, 0.45, 0.45, 0.2},
        {57, "crash-right", crash, 590, 2, 0.55, 0.5},
        {59, "ride-right", ride, 680, 1.5, 0.4, 0.4},
        {60, "bongo-high", handDrum, 410, 0.35, 0.55, -0.4},
        {61, "bongo-low", handDrum, 305, 0.4, 0.55, -0.3},
        {62, "conga-muted", handDrum, 250, 0.25, 0.55, 0.3},
        {63, "conga-open", handDrum, 235, 0.5, 0.6, 0.35},
        {64, "conga-low", handDrum, 175, 0.55, 0.6, 0.4},
        {65, "timbale-high", timbale, 420, 0.6, 0.5, -0.2},
        {66, "timbale-low", timbale, 300, 0.65, 0.5, -0.2},
        {67, "agogo-high", cowbell, 905, 0.4, 0.4, 0.35},
        {68, "agogo-low", cowbell, 680, 0.4, 0.4, 0.35},
        {69, "cabasa", shaker, 7200, 0.2, 0.35, 0.25},
        {70, "maracas", shaker, 5600, 0.2, 0.35, -0.25},
        {73, "scraper-short", scraper, 2600, 0.2, 0.4, -0.4},
        {74, "scraper-long", scraper, 2400, 0.5, 0.4, -0.4},
        {75, "claves", wood, 2450, 0.15, 0.5, 0.15},
        {76, "block-high", wood, 1150, 0.2, 0.5, -0.15},
        {77, "block-low", wood, 860, 0.2, 0.5, -0.15},
        {80, "triangle-muted", triangleMuted, 1650, 0.3, 0.35, 0.45},
        {81, "triangle", triangleOpen, 1650, 1.8, 0.35, 0.45},
    };
    return kit;
}

Channels renderDrum(const Drum &drum, int rate)
{
    const Note note{drum.hertz, rate, drum.seconds, quint32(drum.key)};
    const auto signal = drum.strike(note);
    const auto angle = (drum.pan + 1) * pi / 4;
    Channels channels(2);
    mix(channels[0], signal, std::cos(angle));
    mix(channels[1], signal, std::sin(angle));
    finish(channels, note, {.attack = 0.0007, .release = 0.04, .shortest = 0.1, .peak = drum.peak});
    return channels;
}
