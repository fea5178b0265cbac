#pragma once

#include "check/findings/Finding.h"
#include "core/AbcParser.h"

#include <array>
#include <vector>

// By how many octaves, up or down, the notes of each pitch move; 0: they stay.
using OctaveMoves = std::array<qint8, highestPlayablePitch + 1>;

// What moves a note by octaves, with what follows of it.
struct NoteFix
{
    int offset = 0; // of the note
    QVector<TextChange> changes;
};
using NoteFixes = std::vector<NoteFix>; // in the order of the text

// Gives the findings that stand at such notes their fixes. [any]
void addFixes(const NoteFixes &fixes, QVector<Finding> &findings);
