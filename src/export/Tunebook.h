#pragma once

#include <QString>
#include <QStringList>

// The ABC texts of parts as the tunes X:1, X:2, … of one text, parted by empty lines. The texts stay as they are, but
// for their numbers, which become the first lines, and lines that are empty, which would end a tune. [any]
QString tunebook(const QStringList &texts);
