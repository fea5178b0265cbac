#pragma once

#include "song/SongReader.h"

// What is asked about ABC that was read as the standard has it.

// The source's, for people.
QString nameOf(const SongSource &source);

// Names what the game reads otherwise in each source.
QString questionAbout(const QVector<SongSource> &sources, const QVector<ConvertedAbc> &converted);
