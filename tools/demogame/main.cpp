#include "Installation.h"

#include <QCoreApplication>
#include <QStringList>

#include <cstdio>

int main(int argc, char **argv)
{
    const QCoreApplication application(argc, argv);
    const auto arguments = QCoreApplication::arguments();
    if (arguments.size() != 2 || arguments.at(1).startsWith(QLatin1Char('-'))) {
        std::fputs("usage: kelvarion-demogame DIR\n\nWrites a demo installation of the game into the directory DIR.\n",
                   stderr);
        return 2;
    }
    try {
        writeInstallation(QDir(arguments.at(1)));
        return 0;
    } catch (const QString &message) {
        std::fprintf(stderr, "kelvarion-demogame: %s\n", qUtf8Printable(message));
        return 1;
    }
}
