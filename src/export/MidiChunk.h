#pragma once

#include "core/TrackEvent.h"

#include <QByteArray>

#include <array>
#include <vector>

// Big-endian, the last bytes of the value.
void appendNumber(QByteArray &bytes, quint32 value, int size);

// A track chunk of a Standard MIDI File (SMF 1.0) while it is made: texts first, then messages in any order. Times are
// ticks, 40320 a whole note, until bytes() counts them in the file's own.
class MidiChunk
{
public:
    enum Text : quint8 { TrackName = 0x03, InstrumentName = 0x04 };

    void addText(Text type, const QString &text); // at the start
    void addMeta(quint8 type, const QByteArray &data);
    void addProgram(quint8 channel, quint8 program);

    void addNote(quint8 channel, const TrackEvent &note); // pitch: 0..127
    void addMetre(Ticks at, quint8 numerator, quint8 denominatorPower);
    void addKey(Ticks at, qint8 sharps, quint8 mode); // -7..7; 0 major, 1 minor
    void addTempo(Ticks at, quint32 microsecondsPerQuarter);
    void endAt(Ticks end) { end_ = end; }

    // What all its times are multiples of.
    Ticks commonDivisor() const;
    // ticksPerUnit: of the file, in ticks; divides all times. Throws a QString when the file cannot say so long a time.
    QByteArray bytes(Ticks ticksPerUnit) const;

private:
    // What comes first at the same time: what ends, what is in force for the notes, the notes, and ends of notes
    // without a length.
    enum Rank : quint8 { End, Metre, Key, Tempo, Begin, EndAtOnce };
    struct Message
    {
        Ticks at;
        Rank rank;
        quint8 size;
        std::array<quint8, 7> data;
    };

    void add(Ticks at, Rank rank, std::initializer_list<quint32> data);

    QByteArray start_;
    std::vector<Message> messages_;
    Ticks end_ = 0;
};
