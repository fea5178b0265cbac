#pragma once

#include "check/findings/Finding.h"

#include <functional>

// Gives findings of notes a fix that moves them by octaves: up, or down below 0, and nothing for 0. The notes tied to
// them move along, and where a note behind takes an accidental over from one that moved in front of it, it gets its
// own.

struct FoldedText
{
    const QString &text;
    const QVector<int> &lines; // where they begin
};

// Of this kind; each stands at its note. The findings are in the order of the text. [any]
void foldInto(QVector<Finding> &findings, FindingKind kind, const FoldedText &text,
              const std::function<int(int pitch)> &octaves);

// By how many octaves a note comes into the range that instruments play.
int octavesIntoRange(int pitch);
