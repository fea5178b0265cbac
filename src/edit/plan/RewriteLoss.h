#pragma once

#include <QString>

// What of a text no note says, and what a new text for the same notes is therefore written without.
struct RewriteLoss
{
    int barLines = 0;
    int comments = 0;
    int chordSymbols = 0; // and annotations
    int decorations = 0;  // grace notes, slurs and all other signs

    bool isNothing() const { return barLines + comments + chordSymbols + decorations == 0; }
};

RewriteLoss lostInRewriting(const QString &text);
