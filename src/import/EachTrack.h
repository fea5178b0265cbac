#pragma once

#include "core/Track.h"

#include <functional>
#include <stop_token>

// Calls work(number) for each of the tracks, on all cores when they are long. It may change the track of its number
// alone. What it throws ends the rest and is rethrown, of several the first. Throws Interrupted soon after a stop.
void forEachTrack(const QVector<Track> &tracks, const std::stop_token &stop, const std::function<void(int)> &work);
