#include "audio/TempoMap.h"

#include <algorithm>

// Compiled without floating-point contraction: a fused multiply-add would round once where the definition rounds twice.

namespace {

double samplesPerTick(int sampleRate, qint64 ticksPerMinute, double factor)
{
    return double(sampleRate) * 60.0 / double(ticksPerMinute) / factor;
}

quint64 truncated(double value, quint64 limit)
{
    return value < double(limit) ? quint64(value) : limit;
}

} // namespace

TempoMap::TempoMap(const Track &track, int sampleRate, double factor)
{
    const auto initial = track.ticksPerMinute() > 0 ? track.ticksPerMinute() : defaultTicksPerMinute;
    segments_.append({0, 0, samplesPerTick(sampleRate, initial, factor)});
    for (const auto &event : track.events()) {
        if (event.kind() != TrackEvent::Tempo || event.ticksPerMinute() <= 0)
            continue;
        const auto startSamples = segments_.last().samplesAt(event.start());
        segments_.append({event.start(), startSamples, samplesPerTick(sampleRate, event.ticksPerMinute(), factor)});
    }
}

quint64 TempoMap::Segment::samplesAt(Ticks tick) const
{
    return truncated(double(startSamples) + double(tick - startTick) * samplesPerTick, maxSamples);
}

quint64 TempoMap::samplesAt(Ticks tick) const
{
    const auto isAfter = [](Ticks wanted, const Segment &segment) { return wanted < segment.startTick; };
    const auto next = std::upper_bound(segments_.begin(), segments_.end(), tick, isAfter);
    return next == segments_.begin() ? 0 : std::prev(next)->samplesAt(tick);
}

Ticks TempoMap::tickAt(quint64 samples) const
{
    const auto isAfter = [](quint64 wanted, const Segment &segment) { return wanted < segment.startSamples; };
    const auto next = std::upper_bound(segments_.begin(), segments_.end(), samples, isAfter);
    if (next == segments_.begin())
        return 0;
    const auto &segment = *std::prev(next);
    const auto tick = double(segment.startTick) + double(samples - segment.startSamples) / segment.samplesPerTick;
    return Ticks(truncated(tick, quint64(maxTicks)));
}
