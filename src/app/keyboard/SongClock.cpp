#include "app/keyboard/SongClock.h"

#include <cmath>

namespace {

constexpr double samplesInMs = 48;
constexpr double jump = 300; // ms

} // namespace

void SongClock::report(Ticks position, double at)
{
    constexpr double heed = 0.01;
    const auto start = at - double(map_.samplesAt(position)) / samplesInMs;
    if (!start_ || start < *start_ || start - *start_ > jump)
        start_ = start;
    else
        *start_ += heed * (start - *start_);
}

std::optional<Ticks> SongClock::tickAt(double at) const
{
    if (!start_)
        return std::nullopt;
    return map_.tickAt(quint64(std::max(0.0, (at - *start_) * samplesInMs)));
}
