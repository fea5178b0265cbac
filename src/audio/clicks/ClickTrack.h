#pragma once

#include "assets/Instrument.h"
#include "audio/clicks/ClickSound.h"
#include "core/Track.h"

// The beats of a track as a track of clicks, which a player places as it does notes. [any]
namespace ClickTrack {

constexpr int mostCountInMeasures = 4;

// A click on each beat before the length, in the track's tempo, the first of each measure accented. Where beats are
// very short, not on each; of a song of hundreds of thousands of beats, on the first ones.
Track beats(const Track &track, Ticks length);

// So many measures in the metre and tempo of the place, and its own measure up to there; it ends where the place is.
// Fewer when it would take more than a minute; without notes when there are none.
Track countIn(const Track &track, Ticks place, int measures);

// What plays clicks: the names of its samples are those of no file.
Instrument instrument();
QString sampleName(Click click);

} // namespace ClickTrack
