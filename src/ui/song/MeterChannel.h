#pragma once

#include <QtGlobal>

// The level of one channel and how its display falls. Levels are linear amplitudes; times are milliseconds of one clock
// that never runs backwards.
class MeterChannel
{
public:
    float rms() const { return rms_; }
    float peak() const { return peak_; }
    float shownRms() const { return shownRms_; }
    float shownPeak() const { return shownPeak_; }
    float hold() const { return hold_; }

    // That a peak was above full scale, until someone has seen it.
    bool hasClipped() const { return hasClipped_; }
    void forgetClip() { hasClipped_ = false; }

    // The bars rise at once.
    void receive(float rms, float peak, qint64 now);

    // Nothing is heard or shown, and nothing will fall.
    bool isSilent() const;

    // Lets the display fall by what falls in the time since the last call; whether a value changed.
    bool decay(qint64 elapsed, qint64 now);

private:
    float rms_ = 0;
    float peak_ = 0;
    float shownRms_ = 0;
    float shownPeak_ = 0;
    float hold_ = 0;
    bool hasClipped_ = false;
    qint64 heldSince_ = 0; // when the hold value was last raised
};

// The scale that levels are shown on, in decibels.
namespace MeterScale {

constexpr double lowest = -48.0;
constexpr double highest = 6.0;

double decibels(double amplitude); // -100 for silence; at most the highest
double position(double decibels);  // 0..1 along the bar, clamped to it
double decibelsAt(double position);

} // namespace MeterScale
