#pragma once

#include <QByteArray>

#include <initializer_list>

// Builds the bytes of Standard MIDI Files for tests.
namespace MidiBytes {

inline QByteArray bytes(std::initializer_list<int> values)
{
    QByteArray result;
    for (const int value : values)
        result.append(char(value));
    return result;
}

inline QByteArray bigEndian(quint32 value, int size)
{
    QByteArray result;
    for (int i = size - 1; i >= 0; --i)
        result.append(char(value >> (8 * i)));
    return result;
}

// An event at a delta time below 16384.
inline QByteArray midiEvent(int delta, std::initializer_list<int> values)
{
    const auto time = delta < 0x80 ? bytes({delta}) : bytes({0x80 | (delta >> 7), delta & 0x7F});
    return time + bytes(values);
}

inline QByteArray noteOn(int delta, int key, int velocity = 100, int channel = 0)
{
    return midiEvent(delta, {0x90 | channel, key, velocity});
}

inline QByteArray noteOff(int delta, int key, int channel = 0)
{
    return midiEvent(delta, {0x80 | channel, key, 0});
}

inline QByteArray tempo(int delta, int microseconds)
{
    return midiEvent(delta, {0xFF, 0x51, 3}) + bigEndian(quint32(microseconds), 3);
}

inline QByteArray endOfTrack(int delta = 0)
{
    return midiEvent(delta, {0xFF, 0x2F, 0});
}

inline QByteArray chunk(const QByteArray &events)
{
    return "MTrk" + bigEndian(quint32(events.size()), 4) + events;
}

// 96 file ticks a quarter note: one file tick is 105 model ticks.
inline QByteArray file(std::initializer_list<QByteArray> chunks, int format = 1, int division = 96)
{
    auto result = "MThd" + bigEndian(6, 4) + bigEndian(quint32(format), 2) + bigEndian(quint32(chunks.size()), 2) +
                  bigEndian(quint32(division), 2);
    for (const auto &events : chunks)
        result += chunk(events);
    return result;
}

} // namespace MidiBytes
