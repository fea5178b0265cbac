#pragma once

#include "Arguments.h"
#include "song/SongReader.h"

// Reads a MIDI, ABC or MML file, or standard input for "-". What cannot be read is printed and sets `failed`; nothing
// when that is everything.
std::optional<ReadSong> readInput(const QString &path, const Arguments &arguments, bool &failed);

struct NamedInput
{
    QString path;
    ReadSong song;
};

// The inputs of which something can be read, with a bar meanwhile.
QVector<NamedInput> readInputs(const Arguments &arguments, bool &failed);
