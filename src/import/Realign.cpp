#include "import/Realign.h"

#include <algorithm>
#include <cstdlib>
#include <limits>

SnapGrid::SnapGrid(const QVector<quint32> &denominators)
{
    for (const auto denominator : denominators)
        steps_.append(ticksPerWholeNote / Ticks(denominator));
    if (steps_.isEmpty())
        steps_.append(ticksPerWholeNote);
    minimumLength_ = *std::min_element(steps_.cbegin(), steps_.cend());

    if (std::all_of(steps_.cbegin(), steps_.cend(), [](Ticks step) { return period % step == 0; })) {
        periodPoints_.reserve(int(period));
        for (Ticks time = 0; time < period; ++time)
            periodPoints_.append(qint16(nearestPoint(time)));
    }
}

const SnapGrid &SnapGrid::quick()
{
    static const SnapGrid grid({128, 96, 80, 112, 72});
    return grid;
}

Ticks SnapGrid::nearestPoint(Ticks time) const
{
    auto bestDistance = std::numeric_limits<Ticks>::max();
    auto best = time;
    for (const auto step : steps_) {
        const auto below = time % step;
        if (below < bestDistance) {
            best = time - below;
            bestDistance = below;
        }
        if (step - below < bestDistance) {
            best = time - below + step;
            bestDistance = step - below;
        }
        if (bestDistance == 0)
            break;
    }
    return best;
}

Ticks SnapGrid::snap(Ticks time) const
{
    if (periodPoints_.isEmpty())
        return nearestPoint(time);
    const auto inPeriod = time % period;
    return time - inPeriod + periodPoints_[int(inPeriod)];
}

Track realign(Track track, const SnapGrid &grid, Shifts *shifts)
{
    track.clearAbc();

    const auto msPerTick = [](qint64 ticksPerMinute) {
        return ticksPerMinute > 0 ? 60'000.0 / double(ticksPerMinute) : 0;
    };
    auto tempo = msPerTick(track.ticksPerMinute());
    for (auto &event : track.editEvents()) {
        const auto start = event.start();
        const auto snappedStart = grid.snap(start);
        event.setStart(snappedStart);
        if (event.kind() == TrackEvent::Tempo)
            tempo = msPerTick(event.ticksPerMinute());
        if (!event.isNote())
            continue;
        const auto snappedLength = grid.snap(start + event.length()) - snappedStart;
        event.setLength(snappedLength > 0 ? snappedLength : grid.minimumLength());
        if (shifts != nullptr && snappedStart != start)
            shifts->push_back({double(std::abs(snappedStart - start)) * tempo, snappedStart});
    }
    track.normalize();
    return track;
}
