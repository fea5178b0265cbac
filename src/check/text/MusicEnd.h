#pragma once

#include "core/Ticks.h"
#include "edit/TextChange.h"

// Where the last note, rest or chord of a text ends, which rests can follow.
struct MusicEnd
{
    int offset = 0; // in the text, behind it and the slurs that end there
    Ticks position = 0;
    Ticks measureBegin = 0; // of its measure
    Ticks measureTicks = 0; // 0 where there are no measures to keep to
    Ticks unitLength = 1;
};

// Rests from there on that last so long, above 0: to the end of the measure, then whole ones. [any]
TextChange restsBehind(const MusicEnd &end, Ticks length);
