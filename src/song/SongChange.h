#pragma once

#include "song/Song.h"

// What makes one state of a song into another, as small as the change: members that differ, parts by their ids, and of
// a text only what was put in the place of what was cut.
namespace SongChange {

// Empty when nothing differs. Costs next to nothing for parts that both states share.
QJsonObject between(const Song &before, const Song &after);

// Throws a QString when the change does not belong to this song.
Song applied(Song song, const QJsonObject &change);

} // namespace SongChange
