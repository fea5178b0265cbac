#pragma once

#include "core/TrackEvent.h"

#include <QString>

// A tempo as ABC writes it: so many beats a minute, each the denominator-th part of a whole note.
struct WrittenTempo
{
    quint32 beatDenominator = 4; // divides a whole note's ticks
    quint32 bpm = 120;

    QString text() const { return QStringLiteral("1/%1=%2").arg(beatDenominator).arg(bpm); }
    qint64 ticksPerMinute() const { return ticksPerWholeNote / beatDenominator * qint64(bpm); }
    TrackEvent eventAt(Ticks start) const { return TrackEvent::tempo(start, 1, beatDenominator, bpm); }
};

// Whole quarter notes a minute, rounded down. The length of a quarter note must not be 0.
WrittenTempo truncatedTempo(quint32 microsecondsPerQuarter);

// The longest beat, a quarter note at most, whose whole number a minute is right within 0.01 %. At least 1 and at most
// 2^24 microseconds.
WrittenTempo exactTempo(quint32 microsecondsPerQuarter);

// "1/4=120": the longest beat, a quarter note at most, of which there is a whole number a minute.
QString tempoText(qint64 ticksPerMinute);
