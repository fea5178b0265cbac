#pragma once

#include "import/standard/StandardAbc.h"

#include <QStringList>

#include <optional>

// Whether an ABC text shows that it was written for the game: by our mark, by an instrument of the game, or as it has
// no bar lines at all. The game's reading of such a text is what its writer meant.
bool isWrittenForTheGame(const QString &text);

// How the game reads a tune.
struct GameReading
{
    std::optional<Track> track; // none where it refuses the tune
    PartReport report;
};

// What the game reads otherwise than a musician would, in words: "repeats", "voices", …; nothing when both hear the
// same. The game's readings are of the same tunes, one each.
QStringList differencesFromTheGame(const QVector<StandardTune> &tunes, const QVector<GameReading> &ofTheGame);
