#pragma once

#include "Arguments.h"
#include "import/ImportResult.h"

#include <optional>

struct Input
{
    QVector<Track> tracks;
    std::optional<ImportReport> report; // of what was imported; ABC is read as it stands
};

// Reads a MIDI, ABC or MML file, or standard input for "-". Throws a QString when it cannot be read.
Input readInput(const QString &path, const Arguments &arguments);

struct NamedInput
{
    QString path;
    Input input;
};

// The inputs that can be read, with a bar meanwhile; prints the failure of each other one and sets `failed`.
QVector<NamedInput> readInputs(const Arguments &arguments, bool &failed);
