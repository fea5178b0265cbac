#include "assets/GameInstallation.h"

#include <QDir>

#include <algorithm>
#include <array>

bool isGameInstallation(const QString &directory)
{
    static const std::array programs{
        QStringLiteral("win32/kelvarion.exe"),
        QStringLiteral("linux32/kelvarion"),
        QStringLiteral("linux64/kelvarion"),
        QStringLiteral("Kelvarion.app/Contents/MacOS/kelvarion"),
    };
    const QDir root(directory);
    return QDir(root.filePath(QStringLiteral("assets"))).exists() &&
           std::any_of(programs.begin(), programs.end(), [&root](const QString &path) { return root.exists(path); });
}
