#pragma once

#include "core/Track.h"

// The denominator d of the unit length 1/d that makes the track's ABC text shortest. Only denominators of its own note
// lengths are tried; the smallest wins among equals; 4 for a track without notes.
quint32 detectUnitLength(const Track &track);

// How many characters the ABC text of a note length takes; both in ticks, the unit above 0.
int suffixCost(Ticks length, Ticks unit);

// The track with a new L field, its text to be written anew: "auto" for the detected unit length, or a fraction text.
// Where the header's tempo counts unit lengths, or is missing, it is first written with its beat, so that the tempo
// stays.
Track changeUnitLength(const Track &track, const QString &unitLength);

// "1/8" for the denominator 8.
QString unitLengthText(quint32 denominator);
