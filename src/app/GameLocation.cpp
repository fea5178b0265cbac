#include "app/GameLocation.h"

#include "assets/GameInstallation.h"
#include "settings/Settings.h"
#include "ui/Dialogs.h"

#include <QCoreApplication>
#include <QDir>

namespace {

struct Texts
{
    Q_DECLARE_TR_FUNCTIONS(GameLocation)
};

void storeRoot(Settings &settings, const QString &directory)
{
    settings.setValue(Settings::RootPath, QDir(directory).canonicalPath());
    settings.save();
}

// The second place counts only where the first does not exist at all, even when the first is no installation.
QString usualPlace(const QString &root)
{
    const auto place = [&](const QString &programs) {
        return QDir(root).filePath(programs + QStringLiteral("/Steam/SteamApps/common/Kelvarion"));
    };
    const auto first = place(QStringLiteral("Program Files"));
    return QDir(first).exists() ? first : place(QStringLiteral("Program Files (x86)"));
}

} // namespace

QStringList driveRoots()
{
    QStringList roots;
    for (const auto &drive : QDir::drives())
        roots.append(drive.absolutePath());
    return roots;
}

bool findDefaultInstallation(Settings &settings, const QStringList &roots)
{
    for (const auto &root : roots) {
        const auto place = usualPlace(root);
        if (!isGameInstallation(place))
            continue;
        storeRoot(settings, place);
        return true;
    }
    return false;
}

bool locateGame(Settings &settings, Dialogs &dialogs, const QStringList &roots)
{
    const auto stored = settings.value(Settings::RootPath).toString();
    if ((!stored.isEmpty() && isGameInstallation(stored)) || findDefaultInstallation(settings, roots))
        return true;
    const auto title = QCoreApplication::applicationName();
    dialogs.message(nullptr, Dialogs::Severity::Information, title,
                    Texts::tr("Kelvarion Composer requires Kelvarion to be installed in order to work.\n"
                              "Please specify where Kelvarion is installed."));
    while (true) {
        const auto directory =
            dialogs.directory(nullptr, Texts::tr("Please locate the Kelvarion directory."), QString());
        if (directory.isEmpty())
            return false;
        if (isGameInstallation(directory)) {
            storeRoot(settings, directory);
            return true;
        }
        dialogs.message(nullptr, Dialogs::Severity::Warning, title,
                        Texts::tr("No Kelvarion installation was found at the specified directory."));
    }
}
