#pragma once

#include <QtGlobal>

#include <functional>
#include <random>
#include <vector>

// The building blocks that every sound of the demo game is made of. Everything is computed from fixed seeds, so one
// machine makes the same samples every time.

using Signal = std::vector<double>;   // one channel
using Channels = std::vector<Signal>; // one or two channels of equal length

// What is asked of a sound: pitch in Hz, frames per second, length in seconds, and where its randomness starts.
struct Note
{
    double frequency = 440;
    int rate = 44100;
    double seconds = 1;
    quint32 seed = 1;

    size_t frames() const { return size_t(seconds * rate); }
    double radians(double hertz) const;
    Note at(double hertz) const;
    Note withSeed(quint32 newSeed) const;
};

constexpr double pi = 3.14159265358979323846;

double centsToRatio(double cents);

// Uniform noise in -1..1. The engine's numbers are fixed by the language, those of the standard distributions are not.
class Noise
{
public:
    explicit Noise(quint32 seed) : engine_(seed) {}
    double next() { return double(engine_()) / 2147483647.5 - 1; }

private:
    std::mt19937 engine_;
};

Signal noise(const Note &note);

// ---- Shapes

// What is left of a level of 1 after `seconds` when it halves every `halfLife`.
double halved(double seconds, double halfLife);
// Rises from 0 to 1 in `length` seconds without a corner.
double risen(double seconds, double length);
void mix(Signal &into, const Signal &from, double gain);
void multiply(Signal &signal, const Note &note, const std::function<double(double seconds)> &gain);
void fadeIn(Signal &signal, size_t frames);
void fadeOut(Signal &signal, size_t frames);

// ---- Filters

// Second-order filters; `width` is the band's width in Hz.
void lowPass(Signal &signal, const Note &note, double hertz);
void highPass(Signal &signal, const Note &note, double hertz);
void bandPass(Signal &signal, const Note &note, double hertz, double width);

// How much of a partial at `hertz` a resonance lets through, 0..1.
double resonance(double hertz, double centre, double width);

// ---- Sources

// One harmonic series whose gains and pitch move with time.
struct HarmonicSeries
{
    std::function<double(int harmonic, double hertz, double seconds)> gain;
    std::function<double(double seconds)> cents = [](double) { return 0.0; };
    int most = 40;
};
Signal harmonics(const Note &note, const HarmonicSeries &series);

// A plucked string: a loop of delay, damping and tuning.
struct PluckedString
{
    double position = 0.2; // where it is plucked, as a share of its length
    double softness = 1.2; // how fast the plucked shape's harmonics fall
    double damping = 0.3;  // 0..0.5: how much faster high partials die
    double decay = 4;      // seconds in which the fundamental falls by 60 dB
};
Signal plucked(const Note &note, const PluckedString &string);

// A sum of decaying sines: bars, skins, metal.
struct Mode
{
    double ratio = 1;
    double gain = 1;
    double halfLife = 0.1;
};
Signal modes(const Note &note, const std::vector<Mode> &list);

// One sine that bends the phase of another; the bending dies away before the sound does.
struct PhaseModulation
{
    double ratio = 3.5;
    double index = 1;
    double indexHalfLife = 0.3;
    double halfLife = 0.6;
};
Signal modulated(const Note &note, const PhaseModulation &modulation);

// ---- Finishing

// Removes what lies below hearing, cuts silent ends, rounds both ends off and brings the loudest peak to `peak`.
struct Finish
{
    double attack = 0.002;
    double release = 0.05;
    double shortest = 1; // seconds that are kept even when silent
    double peak = 0.7;   // a little over -3 dB below full scale
};
void finish(Channels &channels, const Note &note, const Finish &how);
