#include "support/Tunes.h"

#include <QDirIterator>
#include <QFile>
#include <QRegularExpression>

namespace {

QString read(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()) : QString();
}

QStringList tunesIn(const QString &folder)
{
    QStringList tunes;
    QStringList paths;
    for (QDirIterator files(folder, {QStringLiteral("*.abc")}, QDir::Files, QDirIterator::Subdirectories);
         files.hasNext();)
        paths += files.next();
    paths.sort();
    static const QRegularExpression begin(QStringLiteral("^(?=X:)"), QRegularExpression::MultilineOption);
    for (const auto &path : paths) {
        for (const auto &tune : read(path).remove(u'\r').split(begin)) {
            if (tune.startsWith(QLatin1String("X:")))
                tunes += tune;
        }
    }
    return tunes;
}

} // namespace

QStringList realTunes()
{
    const QString source(QStringLiteral(COMPOSER_SOURCE_DIR));
    const auto corpus = tunesIn(source + QStringLiteral("/../shared/corpus/abc"));
    return corpus.isEmpty() ? tunesIn(source + QStringLiteral("/examples")) : corpus;
}
