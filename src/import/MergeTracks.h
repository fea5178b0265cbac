#pragma once

#include "core/Track.h"

#include <QVector>

// One track with the events of all, and the header, tempo and metre of the first. Throws a QString when a later track's
// tempo at the start differs, or when it changes tempo where the first does not change to the same.
Track mergeTracks(const QVector<Track> &tracks);
