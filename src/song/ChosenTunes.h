#pragma once

#include "song/SongReader.h"

#include <QSet>

// Of ABC that was read as the standard has it, some tunes.

// The numbers of the source's tunes, in their order; those with notes.
QVector<int> tunesWithTracks(const ReadSong &song, int source);

// Leaves the source's other tunes out.
void keepTunes(ReadSong &song, int source, const QSet<int> &tunes);
