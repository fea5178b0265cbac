#pragma once

#include "edit/plan/NotePieces.h"

#include <span>

// Of pieces in the order of their starts.
std::span<const NotePiece> startingWithin(const std::vector<NotePiece> &pieces, Ticks from, Ticks to);

// Whether the pieces can be written with the unit's own elements, so that its tuplet, its broken rhythm and all that
// stands between its elements stay: they begin where elements do. In tuplets and broken rhythms a piece may sound
// beyond its element. Private to the planner of edits.
bool fitsElements(const AbcLayout &layout, const AbcUnit &unit, const std::vector<NotePiece> &pieces);

// The lengths within an element, as a factor from ticks to unit lengths.
struct LengthScale
{
    quint64 numerator = 0; // 0 where there is none
    quint64 denominator = 1;

    QString text(Ticks length) const;

    // Of what stands alone, or in a chord without a length of its own.
    static LengthScale of(const AbcTextElement &element);
    // Of what stands in the element's chord, which keeps its length.
    static LengthScale inChordOf(const AbcTextElement &element);
};
