#include "audio/TempoPlaces.h"

namespace {

constexpr int nanoseconds = 1'000'000'000; // a second

} // namespace

std::vector<TempoChange> tempoChanges(const Track &track, Ticks before)
{
    std::vector<TempoChange> changes{{0, track.ticksPerMinute() > 0 ? track.ticksPerMinute() : defaultTicksPerMinute}};
    for (const auto &event : track.events()) {
        if (event.ticksPerMinute() <= 0 || event.start() >= before)
            continue;
        if (event.start() <= changes.back().at)
            changes.back().ticksPerMinute = event.ticksPerMinute();
        else if (event.ticksPerMinute() != changes.back().ticksPerMinute)
            changes.push_back({event.start(), event.ticksPerMinute()});
    }
    return changes;
}

TempoPlaces::TempoPlaces(const Track &track, const Track &leader)
    : areMoved_(tempoChanges(track, track.length()) != tempoChanges(leader, track.length()))
{
    if (areMoved_) {
        track_ = TempoMap(track, nanoseconds);
        leader_ = TempoMap(leader, nanoseconds);
    }
}

Ticks TempoPlaces::of(Ticks tick) const
{
    if (!areMoved_)
        return tick;
    const auto moment = track_.samplesAt(tick);
    const auto distance = [&](Ticks candidate) {
        const auto at = leader_.samplesAt(candidate);
        return at > moment ? at - moment : moment - at;
    };
    const auto before = leader_.tickAt(moment);
    return distance(before + 1) < distance(before) ? before + 1 : before;
}
