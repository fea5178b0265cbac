#include "export/MidiChunk.h"

#include <QCoreApplication>

#include <algorithm>
#include <cmath>
#include <numeric>

namespace {

constexpr quint8 meta = 0xFF;
constexpr quint8 endOfTrack = 0x2F;
constexpr Ticks longestDelta = 0x0FFFFFFF; // four bytes of seven bits

void appendVariableLength(QByteArray &bytes, quint32 value)
{
    for (int shift = 21; shift > 0; shift -= 7) {
        if (value >> shift != 0)
            bytes.append(char(0x80U | ((value >> shift) & 0x7FU)));
    }
    bytes.append(char(value & 0x7FU));
}

class Delta
{
public:
    explicit Delta(Ticks ticksPerUnit) : ticksPerUnit_(ticksPerUnit) {}

    void append(QByteArray &bytes, Ticks at)
    {
        const auto delta = (at - last_) / ticksPerUnit_;
        if (delta > longestDelta)
            throw QCoreApplication::translate("MidiExport", "The song is too long for a MIDI file.");
        appendVariableLength(bytes, quint32(delta));
        last_ = at;
    }

private:
    Ticks ticksPerUnit_;
    Ticks last_ = 0;
};

} // namespace

void appendNumber(QByteArray &bytes, quint32 value, int size)
{
    for (int i = size - 1; i >= 0; --i)
        bytes.append(char(value >> (8 * i)));
}

void MidiChunk::addText(Text type, const QString &text)
{
    addMeta(type, text.toUtf8());
}

void MidiChunk::addMeta(quint8 type, const QByteArray &data)
{
    start_.append('\0').append(char(meta)).append(char(type));
    appendVariableLength(start_, quint32(data.size()));
    start_.append(data);
}

void MidiChunk::addProgram(quint8 channel, quint8 program)
{
    start_.append('\0').append(char(0xC0U | channel)).append(char(program));
}

void MidiChunk::addNote(quint8 channel, const TrackEvent &note)
{
    const auto velocity = std::clamp(std::lround(note.velocity() * 127.0F), 1L, 127L); // 0 would end the note
    add(note.start(), Begin, {0x90U | channel, note.pitch(), quint32(velocity)});
    add(note.end(), note.length() > 0 ? End : EndAtOnce, {0x80U | channel, note.pitch(), 64});
}

void MidiChunk::addMetre(Ticks at, quint8 numerator, quint8 denominatorPower)
{
    const bool isCompound = numerator > 3 && numerator % 3 == 0 && denominatorPower >= 3;
    const auto clocksPerBeat = std::max(1U, (96U >> denominatorPower) * (isCompound ? 3U : 1U));
    constexpr quint32 thirtySecondsPerQuarter = 8;
    add(at, Metre, {meta, 0x58, 4, numerator, denominatorPower, clocksPerBeat, thirtySecondsPerQuarter});
}

void MidiChunk::addKey(Ticks at, qint8 sharps, quint8 mode)
{
    add(at, Key, {meta, 0x59, 2, quint8(sharps), mode});
}

void MidiChunk::addTempo(Ticks at, quint32 microsecondsPerQuarter)
{
    const auto tempo = microsecondsPerQuarter;
    add(at, Tempo, {meta, 0x51, 3, (tempo >> 16) & 0xFFU, (tempo >> 8) & 0xFFU, tempo & 0xFFU});
}

void MidiChunk::add(Ticks at, Rank rank, std::initializer_list<quint32> data)
{
    Message message{at, rank, quint8(data.size()), {}};
    std::transform(data.begin(), data.end(), message.data.begin(), [](quint32 byte) { return quint8(byte); });
    messages_.push_back(message);
    end_ = std::max(end_, at);
}

Ticks MidiChunk::commonDivisor() const
{
    auto divisor = end_;
    for (const auto &message : messages_)
        divisor = std::gcd(divisor, message.at);
    return divisor;
}

QByteArray MidiChunk::bytes(Ticks ticksPerUnit) const
{
    auto messages = messages_;
    std::stable_sort(messages.begin(), messages.end(),
                     [](const Message &a, const Message &b) { return a.at != b.at ? a.at < b.at : a.rank < b.rank; });
    auto events = start_;
    Delta delta(ticksPerUnit);
    for (const auto &message : messages) {
        delta.append(events, message.at);
        for (int i = 0; i < message.size; ++i)
            events.append(char(message.data[size_t(i)]));
    }
    delta.append(events, end_);
    events.append(char(meta)).append(char(endOfTrack)).append('\0');
    QByteArray chunk("MTrk");
    appendNumber(chunk, quint32(events.size()), 4);
    return chunk + events;
}
