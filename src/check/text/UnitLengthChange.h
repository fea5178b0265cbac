#pragma once

#include "edit/TextChange.h"

// The text of a part with another unit length, changed in place: everything sounds as before, and all that is not a
// length stays character by character. Denominators are at least 1. [any]

// The denominator that makes the text shortest; of equals the smallest.
quint32 shortestUnitLength(const QString &text);

// Where the tempo counts unit lengths, or is missing, it is written with its beat.
QVector<TextChange> withUnitLength(const QString &text, quint32 denominator);
