#pragma once

#include "import/PartReport.h"
#include "input/Input.h"
#include "song/Song.h"

// The inputs as one song: parts in the order of the inputs, and what the first song file among them says of the whole.
struct Parts
{
    Song song;
    QVector<Track> tracks;       // of the song's parts, in their order
    QVector<PartReport> reports; // of the tracks, as they were read
};

// Of these inputs, with the transformations applied; a merge makes one part without levels of its own. Throws a
// QString. [any]
Parts partsOf(const QVector<NamedInput> &inputs, const Arguments &arguments);

// With the transformations applied; a merge makes one part without levels of its own. What cannot be read or done is
// printed and sets `failed`.
Parts readParts(const Arguments &arguments, bool &failed);

// The parts with their names and instruments, as checks and summaries want them.
ReadSong readSongOf(const Parts &parts);
