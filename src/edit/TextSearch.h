#pragma once

#include "edit/TextChange.h"

#include <QRegularExpression>
#include <QString>
#include <QVector>

// Finding and replacing in a text. The numbers of the enumerations are those of the settings file.
struct SearchOptions
{
    enum Mode { Plain, Extended, RegularExpression }; // Extended knows \n \t \r \\ and \xHH
    enum Direction { Up, Down };

    QString find;
    QString replace;
    bool wholeWords = false;
    bool matchCase = false;
    bool wrapAround = true;
    Mode mode = Plain;
    Direction direction = Down;
};

namespace TextSearch {

// What to look for; with an empty pattern where there is nothing to look for, invalid where the expression is.
QRegularExpression pattern(const SearchOptions &options);

// Every match that is not empty, in the order of the text; at most limit of them.
QVector<TextRange> findAll(const QRegularExpression &pattern, const QString &text, int limit = 1'000'000);

// The match next to the selection in the direction, without it; the index in `matches`, -1 when there is none.
int next(const QVector<TextRange> &matches, TextRange selection, const SearchOptions &options);

// What takes the place of the match, with the groups of a regular expression ("\1" or "$1") put in.
QString replacement(const SearchOptions &options, const QRegularExpression &pattern, const QString &text,
                    TextRange match);

} // namespace TextSearch
