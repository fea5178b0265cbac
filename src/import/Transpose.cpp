#include "import/Transpose.h"

#include "core/AbcParser.h"

Track transpose(const Track &track, int semitones)
{
    Track result;
    result.setHeaderFields(track.headerFields());
    result.setTempo(track.ticksPerMinute());
    result.setMetre(track.measureTicks(), track.beatsPerMeasure());
    result.editEvents().reserve(track.events().size());
    for (const auto &event : track.events()) {
        if (!event.isNote()) {
            result.appendEvent(event);
            continue;
        }
        const auto pitch = qint64(event.pitch()) + semitones;
        if (isPlayable(pitch))
            result.appendEvent(TrackEvent::note(quint32(pitch), event.start(), event.length()));
    }
    result.normalize();
    return result;
}
