#include "edit/plan/RhythmFit.h"

#include "edit/NoteSpelling.h"

#include <algorithm>
#include <limits>
#include <numeric>

namespace {

// Products of four such numbers, and of one with a length, do not overflow.
constexpr quint64 largestFactor = 1 << 10;
constexpr Ticks longestAdvance = Ticks(1) << 31;

bool isSmall(const AbcRatio &ratio)
{
    return ratio.numerator > 0 && ratio.numerator <= largestFactor && ratio.denominator <= largestFactor;
}

LengthScale reduced(quint64 numerator, quint64 denominator)
{
    const auto divisor = std::gcd(numerator, denominator);
    return {numerator / divisor, denominator / divisor};
}

bool hasScale(const AbcTextElement &element)
{
    return element.advance > 0 && element.advance <= longestAdvance && isSmall(element.written) &&
           isSmall(element.chordLength) && !element.isMeasuresRest;
}

bool fitsElement(const AbcTextElement &element, bool isCompound, const std::vector<NotePiece> &pieces)
{
    if (!hasScale(element))
        return false;
    auto shortest = std::numeric_limits<Ticks>::max();
    for (const auto &piece : startingWithin(pieces, element.start, element.end())) {
        if (piece.start != element.start || piece.length > longestAdvance)
            return false;
        shortest = std::min(shortest, piece.length);
    }
    return isCompound ? shortest >= element.advance : shortest == element.advance;
}

} // namespace

std::span<const NotePiece> startingWithin(const std::vector<NotePiece> &pieces, Ticks from, Ticks to)
{
    const auto firstFrom = [&](Ticks tick) {
        return std::partition_point(pieces.begin(), pieces.end(),
                                    [tick](const NotePiece &piece) { return piece.start < tick; });
    };
    return {firstFrom(from), firstFrom(to)};
}

bool fitsElements(const AbcLayout &layout, const AbcUnit &unit, const std::vector<NotePiece> &pieces)
{
    if (unit.isGap || (pieces.empty() && !unit.isCut))
        return false;
    auto end = unit.start;
    for (auto i = unit.firstElement; i < unit.endElement; ++i) {
        const auto &element = layout.elements[i];
        if (element.start != end || !fitsElement(element, unit.isCompound, pieces))
            return false;
        end = element.end();
    }
    return true;
}

QString LengthScale::text(Ticks length) const
{
    return lengthText(Ticks(quint64(length) * numerator), Ticks(denominator));
}

LengthScale LengthScale::inChordOf(const AbcTextElement &element)
{
    return reduced(element.written.numerator, element.written.denominator * quint64(element.advance));
}

LengthScale LengthScale::of(const AbcTextElement &element)
{
    const auto inChord = inChordOf(element);
    return reduced(inChord.numerator * element.chordLength.numerator,
                   inChord.denominator * element.chordLength.denominator);
}
