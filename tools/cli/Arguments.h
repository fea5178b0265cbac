#pragma once

#include "app/SettingsTable.h"
#include "core/Track.h"

#include <QHash>
#include <QStringList>

#include <functional>
#include <optional>

// One step of the TRANSFORM options: the tracks so far in, the new ones out. Throws a QString when it cannot be done.
using Transform = std::function<QVector<Track>(const QVector<Track> &)>;

// What a command line asks for.
struct Arguments
{
    QString command;
    QStringList inputs;
    QString output;
    QHash<int, QVariant> settings; // by SettingsTable::Setting; the others have their defaults
    QVector<Transform> transforms; // in the order given

    bool flag(SettingsTable::Setting setting) const
    {
        return settings.value(setting, SettingsTable::defaultValue(setting)).toBool();
    }
};

extern const char *const usageText;

// Throws a WrongUsage for a command line that means nothing.
struct WrongUsage
{
    QString message;
};
Arguments parseArguments(const QStringList &words);
