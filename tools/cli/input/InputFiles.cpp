#include "input/InputFiles.h"

#include "base/FilePaths.h"

#include <QDirIterator>
#include <QFileInfo>

#include <algorithm>

namespace {

// Links to folders are not followed, since they may lead in circles.
QStringList filesIn(const QString &folder)
{
    const QStringList endings{QStringLiteral("*.mid"), QStringLiteral("*.midi"), QStringLiteral("*.kar"),
                              QStringLiteral("*.abc"), QStringLiteral("*.mml"),  QStringLiteral("*.kvsong")};
    QStringList files;
    for (QDirIterator all(folder, endings, QDir::Files, QDirIterator::Subdirectories); all.hasNext();)
        files.append(all.next());
    std::sort(files.begin(), files.end());
    return files;
}

} // namespace

QStringList inputFiles(const QStringList &inputs)
{
    QStringList files;
    for (const auto &input : inputs) {
        for (const auto &path : expandedWildcards(input)) {
            const auto found = QFileInfo(path).isDir() ? filesIn(path) : QStringList();
            files += found.isEmpty() ? QStringList(path) : found;
        }
    }
    return files;
}
