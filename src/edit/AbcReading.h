#pragma once

#include "core/Track.h"
#include "edit/AbcLayout.h"
#include "edit/TextChange.h"

#include <QString>
#include <QVector>

// An error of the text, where an editor would mark it.
struct AbcProblem
{
    TextRange range;
    int line = 0; // both count from 0
    int column = 0;
    QString message; // without its place
};

// What a text means, errors or not: where a token cannot be read, reading goes on behind it. A plain value.
struct AbcReading
{
    Track track;                  // of the text without the tokens in error
    QVector<AbcProblem> problems; // in the order of the text, at most maxProblems
    QVector<TextRange> noteTexts; // by index in track.events(); empty for what is no note
    AbcLayout layout;
    Ticks unitLength = 0;

    static constexpr int maxProblems = 500;
};

// Never throws. Thread-safe.
AbcReading readAbc(const QString &text);

// Of a text that could not be read at all: one problem, at its beginning.
AbcReading unreadableAbc(const QString &message);

// Why the text cannot be read, in plain words; the token is the first that is refused.
QString refusalText(AbcRefusal why, const AbcToken &token);

// Where the lines of a text begin; the first is 0.
QVector<int> lineOffsets(const QString &text);
