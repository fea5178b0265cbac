#include "base/FilePaths.h"

#include <QDir>
#include <QFileInfo>

bool isInside(const QString &directory, const QString &path)
{
    const auto outer = QDir::cleanPath(directory);
    const auto inner = QDir::cleanPath(path);
    return inner == outer || inner.startsWith(outer.endsWith(QLatin1Char('/')) ? outer : outer + QLatin1Char('/'));
}

bool leadsOutOf(const QString &directory, const QString &path)
{
    const auto target = QFileInfo(path).canonicalFilePath();
    return !target.isEmpty() && !isInside(QFileInfo(directory).canonicalFilePath(), target);
}
