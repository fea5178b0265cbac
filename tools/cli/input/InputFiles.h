#pragma once

#include <QStringList>

// The inputs, where "*" and "?" that no shell has replaced stand for files, with the music files in it and below it in
// the place of each folder, by their names: those that end in .mid, .midi, .kar, .abc, .mml and .kvsong. A folder
// without any stays.
QStringList inputFiles(const QStringList &inputs);
