#pragma once

#include "import/midi/MidiTracks.h"

#include <array>
#include <map>
#include <memory>

// Turns the events of a MIDI file into tracks, one for each channel that holds a note. Times are file ticks until a
// note or change is appended.
class MidiConversion
{
public:
    // division: file ticks per quarter note, above 0.
    MidiConversion(const MidiImportOptions &options, quint16 division, qsizetype fileSize);

    // Forgets notes, programs and bends: before each chunk that is converted on its own, and once otherwise.
    void beginGroup();
    void beginChunk();
    void noteOn(quint8 channel, quint8 key, quint8 velocity, quint64 now);
    void noteOff(quint8 channel, quint8 key, quint64 now);
    void controller(quint8 channel, quint8 number, quint8 value, quint64 now);
    void program(quint8 channel, quint8 program, quint64 now);
    void pitchBend(quint8 channel, int value, quint64 now);
    void instrumentName(quint8 channel, const QByteArray &name);
    void trackName(const QByteArray &name);
    void tempo(quint32 microsecondsPerQuarter, quint64 now);
    void timeSignature(quint8 numerator, quint8 denominatorPower, quint64 now);
    void keySignature(int sharps, int mode, quint64 now);
    void closeActiveNotes(quint64 now); // at an end of track
    void dropActiveNotes();             // where there is none

    // Collects the tracks of the channels that hold notes.
    void endGroup();
    ImportResult finish(const std::stop_token &stop);

private:
    Ticks toTicks(quint64 fileTicks) const;
    void finishNote(MidiChannel &channel, int pitch, const ActiveNotes::Note &note, quint64 end);
    void appendNote(MidiChannel &channel, int pitch, const ActiveNotes::Note &note, quint64 end);
    bool canBeWritten(int pitch) const;
    void endRestruck(MidiChannel &channel, int pitch, const ActiveNotes::Note &note, quint64 now);
    void pedal(MidiChannel &channel, bool isDown, quint64 now);
    void appendChange(const TrackEvent &change) { changes_.append(change); }
    void catchUp(MidiChannel &channel);
    QString decoded(QByteArray name);
    QVector<MidiPart> takeGroupParts();
    void applyTempoList();

    MidiImportOptions options_;
    double tickScale_;
    ImportLimits limits_;
    ImportResult result_;
    std::unique_ptr<std::array<MidiChannel, 16>> channels_;
    ChunkNames chunks_;
    // Metre, key and tempo changes reach every channel's track in the order of the file. They are kept once and copied
    // to a channel when it gets its next note.
    QVector<TrackEvent> changes_;
    MidiStart start_;
    std::map<Ticks, WrittenTempo> tempoList_; // shared by tracks that are converted on their own
    int titleNumber_ = 1;
};
