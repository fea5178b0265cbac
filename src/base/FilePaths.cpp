#include "base/FilePaths.h"

#include <QDir>

bool isInside(const QString &directory, const QString &path)
{
    const auto outer = QDir::cleanPath(directory);
    const auto inner = QDir::cleanPath(path);
    return inner == outer || inner.startsWith(outer.endsWith(QLatin1Char('/')) ? outer : outer + QLatin1Char('/'));
}
