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
    int velocityGate = 8;             // notes struck softer, 0..127, are left out
    bool endRestruck = false;         // a note that is struck again while it sounds ends there, not unheard
    bool sustainPedal = false;        // notes sound on while the pedal is down
    bool splitPrograms = false;       // a channel that changes its program becomes a part for each
    bool trackNames = false;          // parts bear the names of their MIDI tracks
    bool foldOctaves = false;         // notes out of range move by octaves, not out of the song
    bool exactTempo = false;          // tempos within 0.01 %, not whole quarter notes a minute
    bool readAllChunks = false;       // however many chunks the header counts
    bool mergedUnitLength = false;    // with merged channels, too, choose the unit length if that is wanted
};

// Reads a Standard MIDI File of format 0 or 1 with metrical division (SMF 1.0, big-endian). A file that ends early
// gives what it holds up to there. Throws a QString when the file cannot be read, and Interrupted soon after a stop.
ImportResult importMidi(const QByteArray &bytes, const MidiImportOptions &options, const std::stop_token &stop = {});
