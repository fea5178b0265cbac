#pragma once

#include "import/ImportResult.h"

#include <stop_token>

struct MmlImportOptions
{
    bool autoDetectUnitLength = true; // choose the unit length that makes the text shortest
};

// Whether a text without "MML@" is MML by what is in it: nothing but commands, and one of them sets the octave, the
// length, the tempo or the volume.
bool looksLikeMml(const QString &text);

// Reads Music Macro Language text, with or without "MML@". What is no command is skipped. Throws a QString only when
// the text asks for more tracks or tempo changes than any song has, and Interrupted soon after a stop.
ImportResult importMml(const QString &text, const MmlImportOptions &options, const std::stop_token &stop = {});
