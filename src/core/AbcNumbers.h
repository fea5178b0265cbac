#pragma once

#include "core/AbcTokenizer.h"
#include "core/Ticks.h"

// The numbers in ABC tokens.

// A factor of lengths.
struct AbcRatio
{
    quint64 numerator = 1;
    quint64 denominator = 1;

    Ticks of(Ticks length) const { return scaled(length, numerator, denominator); }
    bool isOne() const { return numerator == denominator; }
};

// Of at most as many digits as a token has characters, 20.
quint64 number(QStringView digits);

// More than 32 bits, in the length of a note or rest; no other token is long enough.
bool hasHugeNumber(const AbcToken &token);

// "3/4" as it stands; each "/" without a number halves, and a denominator of 0 counts as 1.
AbcRatio writtenLength(const AbcToken &token);

// "(p:q" as it stands; where q is missing, it follows from p and the metre.
AbcRatio writtenTuplet(const AbcToken &token, bool inCompoundMetre);
