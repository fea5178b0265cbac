#include "import/quantise/LengthPrices.h"

#include "import/UnitLength.h"

#include <bit>
#include <cmath>
#include <numeric>

double LengthPrices::priceOf(Ticks length) const
{
    if (length <= 0)
        return 0;
    const auto divisor = std::gcd(length, ticksPerWholeNote);
    const auto fineness = std::max(0.0, std::log2(double(ticksPerWholeNote / divisor)) - 4);
    const auto numerator = quint64(length / divisor);
    const auto notes = numerator >> std::countr_zero(numerator);
    return suffixCost(length, unit_) + fineness / 2 + (notes == 1 || notes == 3 ? 0 : 0.5);
}
