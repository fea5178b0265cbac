#pragma once

#include "core/Track.h"

// The track with every note moved by so many semitones, -48 to 48. Notes that leave the playable range are dropped, and
// every velocity becomes 1.
Track transpose(const Track &track, int semitones);
