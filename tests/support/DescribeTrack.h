#pragma once

#include "core/Track.h"

// A track's events as text for comparisons: "60@0+10080" is a note of pitch 60 at tick 0 with a length of 10080 ticks,
// "Q1209600@0" a tempo, "K7/0@0" a key with its row and mode, "M3/4@0" a metre.
inline QString describe(const TrackEvent &event)
{
    switch (event.kind()) {
    case TrackEvent::Note:
        return QStringLiteral("%1@%2+%3").arg(event.pitch()).arg(event.start()).arg(event.length());
    case TrackEvent::Tempo:
        return QStringLiteral("Q%1@%2").arg(event.ticksPerMinute()).arg(event.start());
    case TrackEvent::Key:
        return QStringLiteral("K%1/%2@%3").arg(event.keyIndex()).arg(event.keyMode()).arg(event.start());
    default:
        return QStringLiteral("M%1/%2@%3").arg(event.numerator()).arg(event.denominator()).arg(event.start());
    }
}

inline QString describe(const Track &track)
{
    QStringList events;
    for (const auto &event : track.events())
        events.append(describe(event));
    return events.join(u' ');
}
