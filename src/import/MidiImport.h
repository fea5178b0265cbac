#pragma once

#include "import/ImportResult.h"

#include <QByteArray>

#include <stop_token>

struct MidiImportOptions
{
    bool mergeChannels = true;        // one track per channel over all MIDI tracks, not one per MIDI track and channel
    bool autoRealign = true;          // snap the notes to the quick grid
    bool pitchBend = true;            // cut bent notes into notes of whole semitones
    bool autoDetectUnitLength = true; // choose the unit length that makes the text shortest
    bool processVolume = false;       // keep the velocities of notes
};

// Reads a Standard MIDI File of format 0 or 1 with metrical division (SMF 1.0, big-endian). A file that ends early
// gives what it holds up to there. Throws a QString when the file cannot be read, and Interrupted soon after a stop.
ImportResult importMidi(const QByteArray &bytes, const MidiImportOptions &options, const std::stop_token &stop = {});
