#pragma once

#include "arguments/Arguments.h"
#include "assets/InstrumentGuess.h"
#include "import/PartReport.h"
#include "song/Song.h"

struct PlayedPart
{
    const SongPart &song;
    const Track &track;
    const PartReport &report;
};

struct InstrumentChoice
{
    QString name;                    // of the catalogue
    std::optional<GuessBasis> guess; // that it rests on; none when somebody said so
};

// What plays a part: the instrument that it names, else that of --instrument, else what the settings have for its MIDI
// program, else a guess by its program, titles and notes, else the first of the catalogue, which is not empty.
InstrumentChoice instrumentOf(const PlayedPart &part, const Arguments &arguments, const InstrumentSet &instruments);
