#pragma once

#include "audio/render/RenderPlan.h"
#include "core/Track.h"
#include "settings/SettingsTable.h"
#include "song/SongReader.h"

#include <QHash>
#include <QStringList>

#include <functional>
#include <optional>
#include <vector>

// One step of the TRANSFORM options: the tracks so far in, the new ones out. Throws a QString when it cannot be done.
using Transform = std::function<QVector<Track>(const QVector<Track> &)>;

// What convert writes: a file for each track, or for all tracks of an input.
enum class ConvertTo { Abc, Midi, Tunebook };

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
    AbcDialect reading = AbcDialect::Game;
    ConvertTo to = ConvertTo::Abc;
    bool force = false; // write over files
    RenderFiles files = RenderFiles::Mix;
    std::optional<int> bits;       // 16, 24, or 32 for a float
    std::optional<double> quality; // 0..1
    bool loop = false;
    bool normalise = false;
    QHash<int, QVariant> settings; // by SettingsTable::Setting; the others have their defaults
    QVector<Transform> transforms; // in the order given

    QVariant setting(SettingsTable::Setting setting) const
    {
        return settings.value(setting, SettingsTable::defaultValue(setting));
    }
};

// One command of the program.
struct Command
{
    const char *name;     // one word or two
    const char *usage;    // its own words and options, without TRANSFORM…
    const char *required; // names of options, parted by blanks
    const char *optional; // likewise; "transforms" stands for --set and the TRANSFORM options
    int fewestInputs;
    int mostInputs;
    AbcDialect reading;                     // unless --read says otherwise
    int (*run)(const Arguments &arguments); // gives the exit status
};

// Throws a WrongUsage for a command line that means nothing, a HelpWanted for one that asks what there is.
struct WrongUsage
{
    QString message;
};
struct HelpWanted
{
};
struct Invocation
{
    const Command *command;
    Arguments arguments;
};
Invocation parseArguments(const QStringList &words, const std::vector<Command> &commands);

QString usageText(const std::vector<Command> &commands);
