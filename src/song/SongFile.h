#pragma once

#include "song/Song.h"

#include <QByteArray>

// The song file (*.kvsong): a song as one JSON object in UTF-8, laid out for people and for comparing versions. The
// same song gives the same bytes. [any]
namespace SongFile {

constexpr int version = 1;

// folder: where the file stands or will stand, absolute; paths below it are written relative to it. Empty for a song
// that stands nowhere: all its paths are absolute.
// toBytes() throws a QString when the song is larger than a song file may be, fromBytes() when the bytes are not a
// song file, are damaged or of a newer version; it says where. What a part's path names is only the file's claim.
QByteArray toBytes(const Song &song, const QString &folder);
Song fromBytes(const QByteArray &bytes, const QString &folder);

} // namespace SongFile
