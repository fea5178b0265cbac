#pragma once

#include "arrange/Arrangement.h"

struct MeasuredPart
{
    const Track &track; // normalised
    bool isPercussion;  // which crosses nothing
    PartFigures &figures;
};

// Fills in the spans, the most notes at once and the crossings; the others stay.
void measure(const std::vector<MeasuredPart> &parts);
