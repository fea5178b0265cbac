#pragma once

#include "core/Ticks.h"

#include <array>

// What note lengths cost in a score that has a unit length, in characters of ABC text: those that are written, a half
// for each time that the length's denominator is halved beyond a sixteenth note, and a half for a length that is no
// plain or dotted note. The last ones asked for are remembered. A value.
class LengthPrices
{
public:
    explicit LengthPrices(Ticks unit) : unit_(unit) {}

    Ticks unit() const { return unit_; }

    // 0 for a length of 0.
    double of(Ticks length)
    {
        auto &slot = slots_[(quint64(length) * 0x9E3779B97F4A7C15U) >> 55];
        if (slot.length != length)
            slot = {length, priceOf(length)};
        return slot.price;
    }

private:
    struct Slot
    {
        Ticks length = 0;
        double price = 0;
    };

    double priceOf(Ticks length) const;

    Ticks unit_;
    std::array<Slot, 512> slots_{};
};
