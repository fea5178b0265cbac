#pragma once

#include "core/Track.h"

#include <stop_token>

class AbcListener;

// The range of notes that the game's instruments play: A0 to C8, the 88 keys of a piano.
constexpr quint32 lowestPlayablePitch = 21;
constexpr quint32 highestPlayablePitch = 108;

constexpr bool isPlayable(qint64 pitch)
{
    return pitch >= lowestPlayablePitch && pitch <= highestPlayablePitch;
}

// Reads the ABC text of one tune. The track keeps the text, and its notes know where in it they stand. Notes outside
// the playable range take their time but make no event. The listener, if any, hears what is read. Throws a QString that
// says what could not be read and where, and Interrupted soon after a stop.
Track parseAbc(const QString &text, const std::stop_token &stop = {}, AbcListener *listener = nullptr);
