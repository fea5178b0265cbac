#pragma once

#include <QStringList>

class Settings;

// The files that were opened or imported last, as the settings keep them.
namespace RecentFiles {

QStringList list(const Settings &settings);
void add(Settings &settings, const QString &path);
void forget(Settings &settings, const QString &path);

} // namespace RecentFiles
