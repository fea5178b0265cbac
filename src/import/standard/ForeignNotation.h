#pragma once

#include "import/standard/StandardAbc.h"

#include <QStringList>

// Whether an ABC text shows that it was written for the game: by our mark, by an instrument of the game, or as it has
// no bar lines at all. The game's reading of such a text is what its writer meant.
bool isWrittenForTheGame(const QString &text);

// What the game reads otherwise than a musician would, in words: "repeats", "voices", …; nothing when both hear the
// same. The tracks are the game's reading of the same tunes, one each.
QStringList differencesFromTheGame(const QVector<StandardTune> &tunes, const QVector<Track> &asTheGameReads);
