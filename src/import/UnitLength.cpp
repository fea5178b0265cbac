#include "import/UnitLength.h"

#include "core/HeaderFields.h"

#include <limits>
#include <numeric>
#include <set>
#include <unordered_map>

namespace {

int digits(Ticks number)
{
    int count = 1;
    for (; number >= 10; number /= 10)
        ++count;
    return count;
}

quint64 totalCost(const std::unordered_map<Ticks, quint64> &histogram, Ticks unit)
{
    quint64 cost = 0;
    for (const auto &[length, count] : histogram)
        cost += quint64(suffixCost(length, unit)) * count;
    return cost;
}

} // namespace

int suffixCost(Ticks length, Ticks unit)
{
    const auto divisor = std::gcd(length, unit);
    const auto p = length / divisor;
    const auto q = unit / divisor;
    const int numeratorCost = p == 1 ? 0 : digits(p);
    const int denominatorCost = q == 1 ? 0 : q == 2 ? 1 : 1 + digits(q);
    return numeratorCost + denominatorCost;
}

quint32 detectUnitLength(const Track &track)
{
    std::unordered_map<Ticks, quint64> histogram;
    for (const auto &event : track.events()) {
        if (event.isNote())
            ++histogram[event.length()];
    }

    std::set<Ticks> candidates;
    for (const auto &[length, count] : histogram)
        candidates.insert(ticksPerWholeNote / std::gcd(length, ticksPerWholeNote));

    Ticks best = 4;
    auto bestCost = std::numeric_limits<quint64>::max();
    for (const auto denominator : candidates) {
        const auto cost = totalCost(histogram, ticksPerWholeNote / denominator);
        if (cost < bestCost) {
            best = denominator;
            bestCost = cost;
        }
    }
    return quint32(best);
}

QString unitLengthText(quint32 denominator)
{
    return QStringLiteral("1/%1").arg(denominator);
}

Track changeUnitLength(const Track &track, const QString &unitLength)
{
    const auto q = QStringLiteral("Q");
    const auto l = QStringLiteral("L");
    auto result = track;
    const auto tempo = HeaderFields::parseTempo(track.headerField(q));
    if (!tempo.hasBeat()) {
        const auto oldUnit = HeaderFields::parseUnitLength(track.headerField(l));
        const auto divisor = std::gcd(oldUnit, quint32(ticksPerWholeNote));
        result.setHeaderField(q, QStringLiteral("%1/%2=%3")
                                     .arg(oldUnit / divisor)
                                     .arg(quint32(ticksPerWholeNote) / divisor)
                                     .arg(tempo.readable ? tempo.bpm : 120));
    }
    result.setHeaderField(l, unitLength == u"auto" ? unitLengthText(detectUnitLength(track)) : unitLength);
    result.clearAbc();
    return result;
}
