#pragma once

#include <QtGlobal>

#include <algorithm>

// The time base of every track: whole ticks, 40320 to a whole note. 40320 = 2^7 * 3^2 * 5 * 7, so halves down to 1/128
// and triplets, quintuplets, septuplets and nonuplets of them are whole numbers.
using Ticks = qint64;

constexpr Ticks ticksPerWholeNote = 40320;
constexpr Ticks ticksPerQuarter = ticksPerWholeNote / 4;

// Tempo is ticks per minute; the default is 1/4=120.
constexpr qint64 defaultTicksPerMinute = 120 * ticksPerQuarter;

// Readers keep every time, length and tempo within 0..maxTicks, so that no sum or difference of two can overflow.
constexpr Ticks maxTicks = Ticks(1) << 60;

// value * numerator / denominator in truncating integer arithmetic, limited to maxTicks. All arguments are
// non-negative, value at most maxTicks, the denominator not 0.
constexpr Ticks scaled(Ticks value, quint64 numerator, quint64 denominator)
{
    const auto unsignedValue = quint64(value);
    if ((unsignedValue | numerator) >> 31 != 0 && numerator != 0 && unsignedValue > quint64(maxTicks) / numerator)
        return maxTicks;
    const auto product = unsignedValue * numerator;
    return std::min(maxTicks, Ticks(denominator == 1 ? product : product / denominator));
}
