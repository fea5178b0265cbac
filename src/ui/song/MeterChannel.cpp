#include "ui/song/MeterChannel.h"

#include <algorithm>
#include <cmath>

namespace {

constexpr double stepMs = 20.0;
constexpr qint64 holdMs = 2000;
constexpr double barFactor = 0.75; // a step
constexpr double holdFactor = 0.9;

float fallen(float value, double factor, float floor)
{
    if (value == 0.0F)
        return value;
    const auto result = float(double(value) * factor);
    if (floor > result)
        return floor;
    return result < 0.001F ? 0.0F : result;
}

} // namespace

void MeterChannel::receive(float rms, float peak, qint64 now)
{
    rms_ = rms;
    peak_ = peak;
    hasClipped_ |= peak > 1.0F;
    shownRms_ = std::max(shownRms_, rms);
    shownPeak_ = std::max(shownPeak_, peak);
    if (peak > hold_ - 0.00001F) {
        hold_ = peak;
        heldSince_ = now;
    }
}

bool MeterChannel::decay(qint64 elapsed, qint64 now)
{
    const auto before = *this;
    const auto steps = double(elapsed) / stepMs;
    const auto barFall = std::pow(barFactor, steps);
    shownRms_ = fallen(shownRms_, barFall, rms_);
    shownPeak_ = fallen(shownPeak_, barFall, peak_);
    if (now - heldSince_ > holdMs)
        hold_ = fallen(hold_, std::pow(holdFactor, steps), peak_);
    return shownRms_ != before.shownRms_ || shownPeak_ != before.shownPeak_ || hold_ != before.hold_;
}

bool MeterChannel::isSilent() const
{
    return shownRms_ == 0.0F && shownPeak_ == 0.0F && hold_ == 0.0F; // what is shown never falls below what sounds
}

namespace MeterScale {

double decibels(double amplitude)
{
    return std::min(highest, 20.0 * std::log10(std::max(amplitude, 0.00001)));
}

double position(double decibels)
{
    return std::clamp((decibels - lowest) / (highest - lowest), 0.0, 1.0);
}

double decibelsAt(double position)
{
    return lowest + position * (highest - lowest);
}

} // namespace MeterScale
