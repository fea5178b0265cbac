#pragma once

#include "arrange/Arrangement.h"
#include "audio/choice/EngineChoice.h"
#include "audio/render/RenderPlan.h"
#include "core/Track.h"
#include "settings/SettingsTable.h"
#include "song/SongReader.h"

#include <QHash>
#include <QStringList>

#include <functional>
#include <optional>
#include <vector>

// One step of the transformations: the tracks so far in, the new ones out. Throws a QString when it cannot be done.
using Transform = std::function<QVector<Track>(const QVector<Track> &)>;

// What convert writes: a file for each track, or for all tracks of an input.
enum class ConvertTo { Abc, Midi, Tunebook };

// How convert names the file of a part: "<song> - <part>", or as the part alone.
enum class PartNames { Song, Title };

// What a command line asks for.
struct Arguments
{
    QStringList inputs; // the words after the command
    QString output;
    QString game;
    QString instrument;
    QString title;
    bool mods = false;
    bool json = false;
    bool summary = false;  // a table behind the lines
    bool manifest = false; // a file beside the results
    AbcDialect reading = AbcDialect::Game;
    ConvertTo to = ConvertTo::Abc;
    PartNames names = PartNames::Song;
    bool force = false; // write over files
    RenderFiles files = RenderFiles::Mix;
    QString format = QStringLiteral("wav"); // ending of the sound files in a folder
    std::optional<int> bits;                // 16, 24, or 32 for a float
    std::optional<double> quality;          // 0..1
    int players = 0;
    int voices = ArrangeOptions().voices;
    bool loop = false;
    bool normalise = false;
    bool startOffsets = false;
    EngineWish engine;
    QHash<int, QVariant> settings; // by SettingsTable::Setting; the others have their defaults
    QVector<Transform> transforms; // in the order given
    bool merges = false;           // one of them makes one track of those of all inputs

    QVariant setting(SettingsTable::Setting setting) const
    {
        return settings.value(setting, SettingsTable::defaultValue(setting));
    }
};

// One command of the program; the table of them makes usage, help, manual page and completions.
struct Command
{
    const char *name;     // one word or two
    const char *inputs;   // what the words after it are called
    const char *required; // options, parted by blanks, as "name" or "name=VALUE"; the names are those of Options.h
    const char *optional; // likewise; "transforms" stands for --read, --set and the transformations
    const char *purpose;  // one sentence
    int fewestInputs;
    int mostInputs;
    AbcDialect reading;                     // unless --read says otherwise
    int (*run)(const Arguments &arguments); // gives the exit status
};

// An option as one command takes it.
struct CommandOption
{
    QString name;
    QString value; // what its value is called, "a|b" for one of the words; empty for an option without one
    bool isRequired = false;
};
QVector<CommandOption> optionsOf(const Command &command);
bool takesTransforms(const Command &command);

// Throws a WrongUsage for a command line that means nothing, a HelpWanted or VersionWanted for one that asks.
struct WrongUsage
{
    QString message;
    const Command *command = nullptr; // when it is known
};
struct HelpWanted
{
    const Command *command; // null for all of them
};
struct VersionWanted
{
};
struct Invocation
{
    const Command *command;
    Arguments arguments;
};
Invocation parseArguments(const QStringList &words, const std::vector<Command> &commands);
