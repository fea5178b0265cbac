#pragma once

#include "core/HeaderFields.h"
#include "import/standard/Fraction.h"
#include "import/standard/StandardAbcOptions.h"

#include <QStringView>

#include <optional>

// The fields of the ABC standard that speak of time.

// "3/4", "C", "C|", "(2+3)/8", "2+3+2/8"; no metre for "none" and what cannot be read.
HeaderFields::Metre readMetreField(QStringView text);

// The note length that a letter stands for, "1/8"; nothing when it cannot be read.
std::optional<Fraction> readUnitLengthField(QStringView text);

// What it is where no L: says it: a sixteenth when the metre is below 3/4, else an eighth.
Fraction defaultUnitLength(const HeaderFields::Metre &metre);

struct TempoValue
{
    quint32 beatNumerator = 1;
    quint32 beatDenominator = 4;
    quint32 bpm = 120;
};
// "1/4=120", "3/8 1/4=60", "C3=90" (multiples of the unit), "120", "\"Allegro\" 1/4=120", "\"Andante\""; nothing when
// it cannot be read.
std::optional<TempoValue> readTempoField(QStringView text, const Fraction &unitLength, BareTempo bareTempo);
