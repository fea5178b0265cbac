#pragma once

#include "core/Track.h"

// What becomes of notes that leave the playable range.
enum class BeyondRange { Drop, Fold };

// The track with every note moved by so many semitones, -48 to 48. Notes that leave the playable range are dropped, or
// moved back into it by octaves, and every velocity becomes 1.
Track transpose(const Track &track, int semitones, BeyondRange beyond = BeyondRange::Drop);

// One note of it, which keeps its velocity; an event of no kind when it is dropped.
TrackEvent transposedNote(const TrackEvent &note, int semitones, BeyondRange beyond);

// How many of its notes would leave the playable range.
int notesBeyondRange(const Track &track, int semitones);
