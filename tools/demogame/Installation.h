#pragma once

#include <QDir>

// Writes a small installation of the game that has instruments only: two packages, loose files, the player's own files,
// a mod and a packed mod. What is there already under the same names is replaced. Throws a QString.
void writeInstallation(const QDir &root);
