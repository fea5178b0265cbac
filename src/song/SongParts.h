#pragma once

#include "core/Track.h"
#include "song/Song.h"

#include <QStringList>

#include <stop_token>

// Between a song's parts, which are texts, and the tracks that are played. [any]
namespace SongParts {

// A part with the track's text, bar lines, title, file and the instrument that its I field names; everything else is
// new.
SongPart partOf(Track track, const QString &id);

// Throws a QString that names the part when its text cannot be read, and Interrupted soon after a stop.
Track trackOf(const SongPart &part, const std::stop_token &stop = {});

// In the place of a track that cannot be read: without notes, with the part's name and text.
Track silentTrackOf(const SongPart &part);

// "T1", "T2", …: the first number behind all that the song has.
QString freeId(const Song &song);

// "I1", "I2", …: the first that none of them has.
QString freeImportId(const QVector<SongImported> &imports);

// "<song> - <part>", or the part's name alone when it begins with the song's. A name for people, no file name yet.
QString fileTitle(const QString &songName, const QString &partName);

// A file name for each part, "<song> - <part>.abc"; those that a file system takes for the same are numbered.
QStringList fileNames(const Song &song, const QString &songName);

} // namespace SongParts
