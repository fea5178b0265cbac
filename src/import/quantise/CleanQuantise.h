#pragma once

#include "import/midi/MidiImport.h"

// The track as a musician would write it down: its notes begin on the grid that the music is on, measure by measure,
// and get lengths that are simple to write (the costs are told in MeasureGrids.h and NoteLengths.h). No note is lost or
// put before another. Changes of metre, key and tempo move with the notes. Adds the notes that moved to the shifts. The
// same track always gives the same. Throws Interrupted soon after a stop.
Track cleanQuantised(Track track, Shifts *shifts = nullptr, const std::stop_token &stop = {});

// importMidi(), with the notes quantised so instead of being realigned.
ImportResult importMidiCleanly(const QByteArray &bytes, const MidiImportOptions &options,
                               const std::stop_token &stop = {});
