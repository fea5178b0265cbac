#pragma once

#include "core/Ticks.h"

#include <QTypeInfo>

#include <bit>

// One entry of a track's event list: a plain value of 48 bytes whose fields are read according to its kind. An accessor
// of a field that the kind does not carry gives 0, and a setter of one does nothing. A default-constructed event is all
// zeros.
class TrackEvent
{
public:
    enum Kind : quint32 { None, Note, Tempo, Key, UnitLength, Metre };

    TrackEvent() = default;

    // pitch: note number, 60 = middle C. velocity: 0..1.
    static TrackEvent note(quint32 pitch, Ticks start, Ticks length, float velocity = 1.0F)
    {
        TrackEvent event(Note, start);
        event.a_ = quint64(length);
        event.b_ = pitch;
        event.c_ = std::bit_cast<quint32>(velocity);
        return event;
    }

    // beatNumerator/beatDenominator of a whole note per beat, bpm beats a minute. The denominator must not be 0.
    static TrackEvent tempo(Ticks start, quint32 beatNumerator, quint32 beatDenominator, quint32 bpm)
    {
        TrackEvent event(Tempo, start);
        // The beat's length is truncated to whole ticks before it is multiplied.
        const quint32 beat = beatNumerator * quint32(ticksPerWholeNote) / beatDenominator;
        event.a_ = quint64(scaled(beat, bpm, 1));
        event.b_ = beatNumerator;
        event.c_ = beatDenominator;
        event.d_ = bpm;
        return event;
    }

    // keyIndex: row of the key table, 0..14; keyMode: its column, 0..6.
    static TrackEvent key(Ticks start, quint32 keyIndex, quint32 keyMode) { return {Key, start, keyIndex, keyMode}; }

    static TrackEvent unitLength(Ticks start, quint32 numerator, quint32 denominator)
    {
        return {UnitLength, start, numerator, denominator};
    }

    // 0/0 stands for no metre.
    static TrackEvent metre(Ticks start, quint32 numerator, quint32 denominator)
    {
        return {Metre, start, numerator, denominator};
    }

    Kind kind() const { return kind_; }
    bool isNote() const { return kind_ == Note; }

    Ticks start() const { return start_; }
    void setStart(Ticks start) { start_ = start; }

    Ticks length() const { return isNote() ? Ticks(a_) : 0; }
    void setLength(Ticks length)
    {
        if (isNote())
            a_ = quint64(length);
    }
    Ticks end() const { return start_ + length(); }

    quint32 pitch() const { return isNote() ? b_ : 0; }
    void setPitch(quint32 pitch)
    {
        if (isNote())
            b_ = pitch;
    }

    float velocity() const { return isNote() ? std::bit_cast<float>(c_) : 0.0F; }
    void setVelocity(float velocity)
    {
        if (isNote())
            c_ = std::bit_cast<quint32>(velocity);
    }

    // Where the note's own characters stand in the track's ABC text: line and column count from 0, columns and length
    // in UTF-16 units.
    quint32 textLine() const { return isNote() ? d_ : 0; }
    quint32 textColumn() const { return isNote() ? e_ : 0; }
    quint32 textLength() const { return isNote() ? f_ : 0; }
    void setTextPosition(quint32 line, quint32 column, quint32 length)
    {
        if (!isNote())
            return;
        d_ = line;
        e_ = column;
        f_ = length;
    }

    qint64 ticksPerMinute() const { return kind_ == Tempo ? qint64(a_) : 0; }
    quint32 bpm() const { return kind_ == Tempo ? d_ : 0; }

    quint32 keyIndex() const { return kind_ == Key ? lowHalf() : 0; }
    quint32 keyMode() const { return kind_ == Key ? highHalf() : 0; }

    // Of a metre or unit length, or of a tempo's beat.
    quint32 numerator() const { return kind_ == Tempo ? b_ : isFraction() ? lowHalf() : 0; }
    quint32 denominator() const { return kind_ == Tempo ? c_ : isFraction() ? highHalf() : 0; }

private:
    TrackEvent(Kind kind, Ticks start) : kind_(kind), start_(start) {}
    TrackEvent(Kind kind, Ticks start, quint32 low, quint32 high)
        : kind_(kind), start_(start), a_((quint64(high) << 32) | low)
    {
    }

    bool isFraction() const { return kind_ == UnitLength || kind_ == Metre; }
    quint32 lowHalf() const { return quint32(a_); }
    quint32 highHalf() const { return quint32(a_ >> 32); }

    Kind kind_ = None;
    Ticks start_ = 0;
    quint64 a_ = 0; // Note: length; Tempo: ticks per minute; otherwise two halves
    quint32 b_ = 0; // Note: pitch; Tempo: beat numerator
    quint32 c_ = 0; // Note: velocity's bits; Tempo: beat denominator
    quint32 d_ = 0; // Note: text line; Tempo: bpm
    quint32 e_ = 0; // Note: text column
    quint32 f_ = 0; // Note: text length
};

static_assert(sizeof(TrackEvent) == 48);
Q_DECLARE_TYPEINFO(TrackEvent, Q_MOVABLE_TYPE);
