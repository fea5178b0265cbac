#pragma once

#include "song/Song.h"
#include "song/SongTrack.h"

#include <QHash>

#include <memory>
#include <stop_token>

// What the parts of a song were in the sources that they were imported from. [any]
struct SourceTracks
{
    QHash<QString, std::shared_ptr<const Track>> tracks; // by the parts' ids; those that were found
    QStringList problems;                                // for people; of sources that cannot be read
};

// Reads the sources again as they are: MIDI with its own times and lengths, without grids and gates, as loud as it is
// struck; the tempo is the one that it was imported with, so that both stay together. A part is found by its title, or
// by its place where there are as many, or by its notes: after an arrangement the tracks that it plays sound in its
// place, each of them once. Throws Interrupted soon after a stop.
SourceTracks sourceTracks(const SongTracks &song, const QVector<SongImported> &imports,
                          const std::stop_token &stop = {});
