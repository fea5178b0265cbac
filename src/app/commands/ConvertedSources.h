#pragma once

#include "song/SongReader.h"

#include <QSet>

// What is asked about ABC that was read as the standard has it.

// The source's, for people.
QString nameOf(const SongSource &source);

// Names what the game reads otherwise in each source.
QString questionAbout(const QVector<SongSource> &sources, const QVector<ConvertedAbc> &converted);

// The numbers of the source's tunes, in their order; those with notes.
QVector<int> tunesWithTracks(const ReadSong &song, int source);

// Leaves the source's other tunes out.
void keepTunes(ReadSong &song, int source, const QSet<int> &tunes);
