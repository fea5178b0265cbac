#include "InputFiles.h"

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
        const auto found = QFileInfo(input).isDir() ? filesIn(input) : QStringList();
        files += found.isEmpty() ? QStringList(input) : found;
    }
    return files;
}
