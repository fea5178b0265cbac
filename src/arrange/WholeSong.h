#pragma once

#include "core/Track.h"
#include "import/Transpose.h"

#include <QVector>

// Changes of all parts of a song together. The tracks are normalised; those that change have their texts to be made,
// the others stay as they are. [any]
namespace WholeSong {

// The track by so many semitones with its keys, those within the tune as well: the nearest key of the same mode with at
// most six sharps or flats.
Track transposed(const Track &track, int semitones, BeyondRange beyond);

// The track with the tempos of another; its notes keep their written lengths.
Track withTemposOf(const Track &track, const Track &leader);

// The same, but everything sounds when it did, to the nearest tick.
Track inTempoOf(const Track &track, const Track &leader);

// Without the silence before the first note of all and behind the last one; what comes together stays so. Keys, metres,
// unit lengths and tempos in force at the new start are those of the old.
QVector<Track> trimmed(const QVector<Track> &tracks);

// All parts end when the last of them does, with rests.
QVector<Track> padded(const QVector<Track> &tracks);

} // namespace WholeSong
