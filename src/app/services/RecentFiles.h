#pragma once

#include <QStringList>

class Settings;

// What was opened, imported or saved last, as the settings keep it: an entry is a file, or several that came together.
namespace RecentFiles {

QStringList list(const Settings &settings); // the entries, the last first
QStringList filesOf(const QString &entry);
// Absolute paths of files that came together.
void add(Settings &settings, const QStringList &paths);
void forget(Settings &settings, const QString &entry);

} // namespace RecentFiles
