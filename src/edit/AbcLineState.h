#pragma once

#include "core/AbcTokenizer.h"

// What a line of a text hands to the next one, and the number by which a QTextBlock keeps it.
struct AbcLineState
{
    bool inMusic = false; // behind the header
    AbcSymbols symbols;

    int blockState() const
    {
        return int(inMusic) | int(symbols.dollarBreaksLines) << 1 | int(symbols.bangBreaksLines) << 2 |
               int(!symbols.bangDecorates) << 3;
    }

    // -1, of a block that has none, gives the state at the beginning of a text.
    static AbcLineState of(int blockState)
    {
        const auto bits = blockState < 0 ? 0 : blockState;
        return {(bits & 1) != 0, {(bits & 2) != 0, (bits & 4) != 0, (bits & 8) == 0}};
    }
};
