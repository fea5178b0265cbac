#pragma once

#include <QString>

// Whether a directory holds the game: its assets, and its program for one of the systems that it runs on.
bool isGameInstallation(const QString &directory);
