#include "song/preview/OctaveShift.h"

#include "core/AbcParser.h"

#include <algorithm>

namespace {

constexpr int semitonesOf(int octaves)
{
    return 12 * octaves;
}

int sumOf(const QMap<quint32, int> &pitchCounts)
{
    int sum = 0;
    for (const int count : pitchCounts)
        sum += count;
    return sum;
}

} // namespace

Track shiftedByOctaves(const Track &track, int octaves)
{
    const int semitones = semitonesOf(octaves);
    const auto leaves = [semitones](const TrackEvent &event) {
        return event.isNote() && !isPlayable(qint64(event.pitch()) + semitones);
    };
    auto shifted = track;
    shifted.clearAbc();
    shifted.setFilePath({}); // which holds it as it was
    auto &events = shifted.editEvents();
    events.erase(std::remove_if(events.begin(), events.end(), leaves), events.end());
    for (auto &event : events)
        event.setPitch(quint32(int(event.pitch()) + semitones));
    shifted.normalize();
    return shifted;
}

int playableNotes(const QMap<quint32, int> &pitchCounts, const Tuning &tuning, int octaves)
{
    int playable = 0;
    for (auto each = pitchCounts.begin(); each != pitchCounts.end(); ++each) {
        const auto pitch = qint64(each.key()) + semitonesOf(octaves);
        playable += isPlayable(pitch) && tuning.notes.contains(quint32(pitch)) ? each.value() : 0;
    }
    return playable;
}

int proposedOctaves(const QMap<quint32, int> &pitchCounts, const Tuning &tuning)
{
    constexpr int leastGainPercent = 5;
    const int unmoved = playableNotes(pitchCounts, tuning, 0);
    const int all = sumOf(pitchCounts);
    int best = 0;
    int most = unmoved;
    for (int distance = 1; distance <= mostOctaves && most < all; ++distance) {
        for (const int octaves : {-distance, distance}) {
            if (const int playable = playableNotes(pitchCounts, tuning, octaves); playable > most) {
                best = octaves;
                most = playable;
            }
        }
    }
    return qint64(most - unmoved) * 100 >= qint64(all) * leastGainPercent ? best : 0;
}
