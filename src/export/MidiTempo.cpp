#include "export/MidiTempo.h"

#include <algorithm>
#include <limits>

namespace {

constexpr qint64 microsecondsPerMinute = 60'000'000;
constexpr qint64 slowest = microsecondsPerMinute * ticksPerQuarter / 0xFFFFFF + 1; // ticks a minute
constexpr qint64 fastest = std::numeric_limits<quint32>::max();

Track tempoOnly(const Track &track)
{
    Track result;
    for (const auto &[at, ticksPerMinute] : tempoChanges(track)) {
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
    for (const auto &[at, ticksPerMinute] : tempoChanges(file_))
        changes.push_back({at, quint32(microsecondsPerMinute * ticksPerQuarter / ticksPerMinute)});
    return changes;
}
