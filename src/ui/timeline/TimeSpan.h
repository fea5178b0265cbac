#pragma once

#include "core/Ticks.h"

#include <algorithm>

// The stretch of a song that lies between the left and the right edge of what shows it. A value.
struct TimeSpan
{
    Ticks begin = 0;
    Ticks length = 0; // 0: there is nothing to show

    Ticks end() const { return begin + length; }
    bool operator==(const TimeSpan &) const = default;

    // Where a tick stands in so much width, of any unit; also outside. 0 while there is nothing to show.
    double x(Ticks tick, double width) const
    {
        return length <= 0 ? 0.0 : double(tick - begin) / double(length) * width;
    }

    // Within the span.
    Ticks tickAt(int x, int width) const
    {
        if (width <= 0 || length <= 0)
            return begin;
        return begin + scaled(length, quint64(std::clamp(x, 0, width)), quint64(width));
    }

    // How many ticks are so wide.
    Ticks ticksIn(double distance, double width) const
    {
        return width <= 0 ? 0 : Ticks(std::min(distance / width * double(length), double(maxTicks)));
    }
};
