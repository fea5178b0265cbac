#pragma once

#include "import/ActiveNotes.h"
#include "import/ImportLimits.h"
#include "import/MidiImport.h"

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
    void noteOn(quint8 channel, quint8 key, quint8 velocity, quint64 now);
    void noteOff(quint8 channel, quint8 key, quint64 now);
    void controller(quint8 channel, quint8 number, quint8 value);
    void program(quint8 channel, quint8 program);
    void pitchBend(quint8 channel, int value, quint64 now);
    void instrumentName(quint8 channel, QByteArray name);
    void tempo(quint32 microsecondsPerQuarter, quint64 now);
    void timeSignature(quint8 numerator, quint8 denominatorPower, quint64 now);
    void keySignature(int sharps, int mode, quint64 now);
    void closeActiveNotes(quint64 now);
    void dropActiveNotes();

    // Collects the tracks of the channels that hold notes.
    void endGroup();
    ImportResult finish(const std::stop_token &stop);

private:
    struct Channel
    {
        ActiveNotes active;
        QStringList names;
        QVector<TrackEvent> events;
        bool hasNotes = false;
        qsizetype changesSeen = 0; // how many of the group's changes stand in events
        int program = 0;
        int pitchOffset = 0; // semitones that the bend in force adds to each key
        int bendRange = 2;
        quint32 registeredParameter = 0x7F7F;
    };
    // What the start of the group says about all of its tracks; empty texts when it is silent.
    struct Start
    {
        QString tempo;
        qint64 ticksPerMinute = defaultTicksPerMinute;
        QString metre;
        quint32 measureTicks = 0;
        quint32 beatsPerMeasure = 0;
        QString key;
    };

    Ticks toTicks(quint64 fileTicks) const;
    void appendNote(Channel &channel, int pitch, const ActiveNotes::Note &note, quint64 end);
    void appendChange(const TrackEvent &change) { changes_.append(change); }
    void catchUp(Channel &channel);
    Track makeTrack(Channel &channel, const QString &title) const;
    void applyTempoList(Track &track);
    Track finished(Track track);

    MidiImportOptions options_;
    double tickScale_;
    ImportLimits limits_;
    ImportResult result_;
    std::unique_ptr<std::array<Channel, 16>> channels_;
    // Metre, key and tempo changes reach every channel's track in the order of the file. They are kept once and copied
    // to a channel when it gets its next note.
    QVector<TrackEvent> changes_;
    Start start_;
    std::map<Ticks, quint32> tempoList_; // beats per minute, shared by tracks that are converted on their own
    int titleNumber_ = 1;
};
