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

QStringList expandedWildcards(const QString &path)
{
    const QFileInfo info(path);
    auto pattern = info.fileName();
    if (info.exists() || !(pattern.contains(u'*') || pattern.contains(u'?')))
        return {path};
    pattern.replace(u'[', QStringLiteral("[[]")); // the name of the file has one
    const auto folder = path.chopped(info.fileName().size());
    QStringList paths;
    for (const auto &name : info.dir().entryList({pattern}, QDir::AllEntries | QDir::NoDotAndDotDot, QDir::Name))
        paths.append(folder + name);
    return paths.isEmpty() ? QStringList(path) : paths;
}
