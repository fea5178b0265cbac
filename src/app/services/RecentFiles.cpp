#include "app/services/RecentFiles.h"

#include "settings/Settings.h"

#include <QFileInfo>

namespace {

constexpr int mostFilesOfEntry = 200; // no menu is for more, and the settings' file should stay small
constexpr auto fileSeparator = u'\t';

void store(Settings &settings, const QStringList &entries)
{
    settings.setValue(Settings::RecentFiles, entries.mid(0, SettingsTable::longestHistory).join(u'\n'));
}

} // namespace

QStringList RecentFiles::list(const Settings &settings)
{
    return settings.value(Settings::RecentFiles).toString().split(u'\n', Qt::SkipEmptyParts);
}

QStringList RecentFiles::filesOf(const QString &entry)
{
    return entry.split(fileSeparator, Qt::SkipEmptyParts);
}

void RecentFiles::add(Settings &settings, const QStringList &paths)
{
    QStringList files;
    for (const auto &path : paths.mid(0, mostFilesOfEntry)) {
        const auto absolute = QFileInfo(path).absoluteFilePath();
        if (!absolute.contains(u'\n') && !absolute.contains(fileSeparator) && !files.contains(absolute))
            files.append(absolute);
    }
    if (files.isEmpty())
        return;
    const auto entry = files.join(fileSeparator);
    auto entries = list(settings);
    entries.removeAll(entry);
    entries.prepend(entry);
    store(settings, entries);
}

void RecentFiles::forget(Settings &settings, const QString &entry)
{
    auto entries = list(settings);
    entries.removeAll(entry);
    store(settings, entries);
}
