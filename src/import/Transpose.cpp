#include "import/Transpose.h"

#include "core/AbcParser.h"

#include <algorithm>

TrackEvent transposedNote(const TrackEvent &note, int semitones, BeyondRange beyond)
{
    auto pitch = qint64(note.pitch()) + semitones;
    while (beyond == BeyondRange::Fold && pitch < lowestPlayablePitch)
        pitch += 12;
    while (beyond == BeyondRange::Fold && pitch > highestPlayablePitch)
        pitch -= 12;
    if (!isPlayable(pitch))
        return {};
    return TrackEvent::note(quint32(pitch), note.start(), note.length(), note.velocity());
}

Track transpose(const Track &track, int semitones, BeyondRange beyond)
{
    Track result;
    result.setHeaderFields(track.headerFields());
    result.setTempo(track.ticksPerMinute());
    result.setMetre(track.measureTicks(), track.beatsPerMeasure());
    result.editEvents().reserve(track.events().size());
    for (const auto &event : track.events()) {
        auto moved = event.isNote() ? transposedNote(event, semitones, beyond) : event;
        moved.setVelocity(1);
        if (moved.kind() != TrackEvent::None)
            result.appendEvent(moved);
    }
    result.normalize();
    return result;
}

int notesBeyondRange(const Track &track, int semitones)
{
    return int(std::count_if(track.events().begin(), track.events().end(), [semitones](const TrackEvent &event) {
        return event.isNote() && !isPlayable(qint64(event.pitch()) + semitones);
    }));
}
