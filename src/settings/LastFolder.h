#pragma once

#include "settings/Settings.h"

// What a dialog proposes for a file: its name, made one that every file system takes, in the folder that the setting
// remembers, else in the user's own. The ending begins with a dot. [any]
QString proposedFile(const Settings &settings, Settings::Setting folder, const QString &name, const QString &ending);
