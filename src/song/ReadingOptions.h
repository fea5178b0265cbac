#pragma once

#include "import/MmlImport.h"
#include "import/midi/MidiImport.h"
#include "import/standard/StandardAbcOptions.h"
#include "settings/SettingsTable.h"

#include <QJsonObject>
#include <QVariant>

#include <functional>

// How ABC is understood: as the game does, as a musician does by the ABC standard, which is then written in the game's
// words, or the one or the other by what the text shows.
enum class AbcDialect { Game, Standard, Auto };

// The settings that reading depends on, taken once.
struct ReadingOptions
{
    MidiImportOptions midi;
    bool cleanQuantise = false; // MIDI, instead of realigning
    MmlImportOptions mml;
    AbcDialect abc = AbcDialect::Game;
    StandardAbcOptions standardAbc;

    // Tracks to be shown have their ABC texts made, which takes long in a long track, ABC tells what the game makes of
    // it, and imported tracks without notes are left out.
    enum class Tracks { AsRead, ToBeShown };
    Tracks tracks = Tracks::AsRead;

    // What the game's reader refuses in a tune or a part of a song is an error, or is passed over: the track has the
    // rest, and all of the text.
    enum class Refused { IsAnError, IsPassedOver };
    Refused refused = Refused::IsAnError;
};
ReadingOptions readingOptions(const std::function<QVariant(SettingsTable::Setting)> &setting);

// The same settings by their keys, for SongImported, and back; what is missing is as by default.
QJsonObject importSettings(const std::function<QVariant(SettingsTable::Setting)> &setting);
QJsonObject importSettings(const ReadingOptions &options);
ReadingOptions readingOptions(const QJsonObject &settings);
