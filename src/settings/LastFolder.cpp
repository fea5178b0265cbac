#include "settings/LastFolder.h"

#include "base/SafeFile.h"

#include <QDir>

QString proposedFile(const Settings &settings, Settings::Setting folder, const QString &name, const QString &ending)
{
    const auto last = settings.value(folder).toString();
    return QDir(last.isEmpty() ? QDir::homePath() : last).filePath(SafeFile::cleanName(name) + ending);
}
