#pragma once

#include "core/Track.h"
#include "import/ImportLimits.h"
#include "import/PartReport.h"
#include "import/midi/ActiveNotes.h"

#include <QStringList>

#include <array>
#include <map>

// What a MIDI file has said of one channel so far.
struct MidiChannel
{
    ActiveNotes active;
    QStringList names;
    QVector<TrackEvent> events; // in the order in which they ended
    QVector<int> sources;       // the chunks that its notes are from, by number
    bool hasNotes = false;
    qsizetype changesSeen = 0; // how many of the group's changes stand in events
    int program = 0;
    std::map<Ticks, int> programs;   // by when they came into force
    std::map<int, PartReport> found; // by the program that was in force there
    bool pedalIsDown = false;
    int pitchOffset = 0; // semitones that the bend in force adds to each key
    int bendRange = 2;
    quint32 registeredParameter = 0x7F7F;

    void add(ImportFinding finding, Ticks place);
};

// What becomes a track: the notes of a channel, or those with one of its programs.
struct MidiPart
{
    int channel = 0;
    int program = 0;
    QVector<TrackEvent> events; // with a copy of all changes of tempo, metre and key
    PartReport report = {};     // of what was found; what has no part of its own is in the first
};

enum class ProgramParts { Joined, Split };

// Takes the channel's events and findings. In the order of their first notes; not parted, they get the last program.
QVector<MidiPart> takeParts(MidiChannel &channel, int number, ProgramParts programs, ImportLimits &limits);

// "Percussion" on the tenth channel, the program's name elsewhere.
QString instrumentTitle(const MidiPart &part);

// Names parts by the chunks of the file that they are from; a chunk that is in several has the instrument beside it.
class ChunkNames
{
public:
    int addChunk();                    // gives its number; from now on it is the current one
    void setName(const QString &name); // of the current chunk, unless it has one
    int current() const { return int(names_.size()) - 1; }

    // Empty when no chunk of the part's channel has a name. The parts are all that the file has of these chunks.
    QStringList titles(const QVector<MidiPart> &parts, const std::array<MidiChannel, 16> &channels) const;

private:
    QString joined(const QVector<int> &chunks) const;

    QStringList names_;
};
