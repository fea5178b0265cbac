#pragma once

#include "import/ImportResult.h"
#include "import/WrittenTempo.h"
#include "import/midi/MidiImport.h"
#include "import/midi/MidiParts.h"

#include <QStringList>

#include <optional>
#include <stop_token>

// What the start of a file, or of a chunk that is converted on its own, says about all of its tracks; empty texts when
// it is silent.
struct MidiStart
{
    std::optional<WrittenTempo> tempo;
    QString metre;
    quint32 measureTicks = 0;
    quint32 beatsPerMeasure = 0;
    QString key;
};

// A part with its header fields; its events are as the file has them.
Track midiTrack(MidiPart part, const QStringList &titles, const MidiStart &start);

// From its start on. Adds it to the track.
void setTempo(Track &track, Ticks start, const WrittenTempo &tempo);

// Realigns and finds unit lengths as it is wanted, and sums the parts' reports up. Throws Interrupted soon after a
// stop.
void finishTracks(ImportResult &result, const MidiImportOptions &options, const std::stop_token &stop);
