#pragma once

#include "core/TrackEvent.h"

#include <QString>
#include <QStringView>

#include <optional>

// What the texts of the ABC fields K:, L:, M: and Q: mean. Nothing here throws: a text that cannot be read falls back
// to a default, keys with a warning in the log.
namespace HeaderFields {

struct Key
{
    quint32 row = 7;
    quint32 mode = 0;
};

// The reader and the writer of ABC must find the same key, or the accidentals of the one mean other notes to the other.
std::optional<Key> findKey(const QString &text);
// The neutral key where there is none to be found.
Key parseKey(const QString &text);

// Nothing where there is no length above 0 to be found.
std::optional<quint32> findUnitLength(QStringView text);
// Ticks of "1/8", "3/16" or "2" (two whole notes). A quarter note when the text is empty, cannot be read or comes to
// nothing.
quint32 parseUnitLength(QStringView text);

struct Metre
{
    quint32 numerator = 0;
    quint32 denominator = 0;

    bool isNone() const { return denominator == 0; }
    bool isCompound() const;
    // 0 without a metre.
    Ticks measureTicks() const;
};
Metre parseMetre(const QString &text);

// A tempo text, "1/4=120" or "120". Numbers are 0 when they are missing.
struct Tempo
{
    quint32 beatNumerator = 0;
    quint32 beatDenominator = 0;
    quint32 bpm = 0;
    bool readable = false;

    bool hasBeat() const { return beatNumerator != 0 && beatDenominator != 0; }
};
Tempo parseTempo(QStringView text);

// Ticks per minute of the Q: field of a header; without a beat it counts unit lengths, without a text 120 of them.
qint64 headerTempo(QStringView text, quint32 unitLength);

// The event of a Q: field inside the tune. A text that cannot be read gives a tempo of 0.
TrackEvent inlineTempo(Ticks start, QStringView text, quint32 unitLength);

// The instrument of the first I: field that names one, "Instrument:Lute"; empty when there is none.
QString instrumentName(const QStringList &values);

} // namespace HeaderFields
