#include "app/services/RecentFiles.h"

#include "settings/Settings.h"

#include <QFileInfo>

namespace {

void store(Settings &settings, const QStringList &paths)
{
    settings.setValue(Settings::RecentFiles, paths.mid(0, SettingsTable::longestHistory).join(u'\n'));
}

} // namespace

QStringList RecentFiles::list(const Settings &settings)
{
    return settings.value(Settings::RecentFiles).toString().split(u'\n', Qt::SkipEmptyParts);
}

void RecentFiles::add(Settings &settings, const QString &path)
{
    const auto absolute = QFileInfo(path).absoluteFilePath();
    if (absolute.contains(u'\n'))
        return;
    auto paths = list(settings);
    paths.removeAll(absolute);
    paths.prepend(absolute);
    store(settings, paths);
}

void RecentFiles::forget(Settings &settings, const QString &path)
{
    auto paths = list(settings);
    paths.removeAll(path);
    store(settings, paths);
}
