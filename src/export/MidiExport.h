#pragma once

#include "core/Track.h"

#include <QByteArray>

#include <optional>
#include <stop_token>

// A part as a MIDI file has it.
struct ExportedPart
{
    Track track;                     // normalised
    QString name = {};               // for people
    QString instrument = {};         // likewise; may be empty
    std::optional<int> program = {}; // 0..127, or ProgramInstruments::percussion; nothing when it is not known
};

struct MidiExport
{
    QByteArray bytes;
    int cutNotes = 0;   // that end where their pitch begins again, or are one with a longer one that begins with them
    int leftOut = 0;    // notes that are higher than MIDI has them
    int movedParts = 0; // with tempos of their own: their notes stand at the same moments in the file's tempo
};

// A Standard MIDI File of format 1 (SMF 1.0): tempo, metre and key in the first chunk, then a chunk for each part. All
// times of parts in the file's tempo, which is that of the longest, are exact. Parts have channels of their own, as
// long as there are any; then MIDI ports tell them apart. Throws a QString when the song is too long, and Interrupted
// soon after a stop.
MidiExport exportMidi(const QString &title, const QVector<ExportedPart> &parts, const std::stop_token &stop = {});
