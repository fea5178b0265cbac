#pragma once

#include "assets/Instrument.h"
#include "core/Track.h"

// Notes of a part moved by whole octaves, so that an instrument can play them.

// The track with its notes moved. Those that leave the playable range are dropped. Its ABC text is to be made anew.
Track shiftedByOctaves(const Track &track, int octaves);

// How many of these notes the instrument can play when they are moved.
int playableNotes(const QMap<quint32, int> &pitchCounts, const Tuning &tuning, int octaves);

constexpr int mostOctaves = 4; // up or down

// With which shift the instrument plays most of them, the nearest of equals. 0 unless it gains more than a few notes: a
// part is not moved for the sake of some.
int proposedOctaves(const QMap<quint32, int> &pitchCounts, const Tuning &tuning);
