#include "export/MidiTempo.h"

#include <algorithm>
#include <limits>

namespace {

constexpr int nanoseconds = 1'000'000'000; // a second

constexpr qint64 microsecondsPerMinute = 60'000'000;
constexpr qint64 slowest = microsecondsPerMinute * ticksPerQuarter / 0xFFFFFF + 1; // ticks a minute
constexpr qint64 fastest = std::numeric_limits<quint32>::max();

struct TempoChange
{
    Ticks at;
    qint64 ticksPerMinute;

    bool operator==(const TempoChange &) const = default;
};

// Those that change something; a tempo of 0 does not.
std::vector<TempoChange> changesOf(const Track &track, Ticks before = 2 * maxTicks)
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

Track tempoOnly(const Track &track)
{
    Track result;
    for (const auto &[at, ticksPerMinute] : changesOf(track)) {
        const auto tempo = std::clamp(ticksPerMinute, slowest, fastest);
        if (at == 0)
            result.setTempo(tempo);
        else
            result.appendEvent(TrackEvent::tempo(at, 1, quint32(ticksPerWholeNote), quint32(tempo)));
    }
    return result;
}

Track longestOf(const QVector<Track> &tracks)
{
    const auto isShorter = [](const Track &a, const Track &b) { return a.length() < b.length(); };
    const auto longest = std::max_element(tracks.begin(), tracks.end(), isShorter);
    return longest != tracks.end() ? *longest : Track();
}

} // namespace

MidiTempo::MidiTempo(const QVector<Track> &tracks) : leader_(longestOf(tracks)), file_(tempoOnly(leader_)) {}

// Rounded down, so that a whole number of beats a minute remains one where it is rounded down again.
std::vector<MidiTempo::Change> MidiTempo::changes() const
{
    std::vector<Change> changes;
    for (const auto &[at, ticksPerMinute] : changesOf(file_))
        changes.push_back({at, quint32(microsecondsPerMinute * ticksPerQuarter / ticksPerMinute)});
    return changes;
}

MidiTempo::Places::Places(const Track &track, const Track &file)
    : areMoved_(changesOf(track, track.length()) != changesOf(file, track.length()))
{
    if (areMoved_) {
        track_ = TempoMap(track, nanoseconds);
        file_ = TempoMap(file, nanoseconds);
    }
}

Ticks MidiTempo::Places::of(Ticks tick) const
{
    if (!areMoved_)
        return tick;
    const auto moment = track_.samplesAt(tick);
    const auto distance = [&](Ticks candidate) {
        const auto at = file_.samplesAt(candidate);
        return at > moment ? at - moment : moment - at;
    };
    const auto before = file_.tickAt(moment);
    return distance(before + 1) < distance(before) ? before + 1 : before;
}
