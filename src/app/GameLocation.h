#pragma once

#include <QStringList>

class Dialogs;
class Settings;

// The directories that the system's drives begin with, in its order.
QStringList driveRoots();

// Looks where the game is usually installed below each root, stores the first place found as the root path and saves
// the settings. False when there is none.
bool findDefaultInstallation(Settings &settings, const QStringList &roots);

// Makes sure that the settings name a game installation: the stored one, a usual place, or what the user chooses.
// False when the user cancels.
bool locateGame(Settings &settings, Dialogs &dialogs, const QStringList &roots);
