#include "app/AnsweringDialogs.h"
#include "app/GameLocation.h"
#include "settings/Settings.h"
#include "support/Rows.h"

#include <QTemporaryDir>

class TestGameLocation : public QObject
{
    Q_OBJECT

private slots:
    void init()
    {
        QCoreApplication::setApplicationName(QStringLiteral("Kelvarion Composer"));
        settings_.reset();
        directory_ = std::make_unique<QTemporaryDir>();
        settings_ = std::make_unique<Settings>(at("/Composer.cfg"));
        dialogs_ = std::make_unique<AnsweringDialogs>();
    }

    void findsTheGame_data()
    {
        // places: of games, or where they end with /, of empty folders
        const Rows<QString, QString, QString> row("places", "stored", "found");
        const auto first = QStringLiteral("/Program Files/Steam/SteamApps/common/Kelvarion");
        const auto second = QStringLiteral("/Program Files (x86)/Steam/SteamApps/common/Kelvarion");
        row("stored", QStringLiteral("/game\n/c") + first, "/game", "/game");
        row("stored is gone", QStringLiteral("/c") + first, "/game", QStringLiteral("/c") + first);
        row("second", QStringLiteral("/c") + second, "", QStringLiteral("/c") + second);
        row("second drive", QStringLiteral("/d") + second, "", QStringLiteral("/d") + second);
        row("empty first hides second", QStringLiteral("/c%1\n/c%2/").arg(second, first), "", "");
        row("nowhere", "", "", "");
    }

    void findsTheGame()
    {
        QFETCH(QString, places);
        QFETCH(QString, stored);
        QFETCH(QString, found);
        for (const auto &place : places.split(u'\n', Qt::SkipEmptyParts))
            place.endsWith(u'/') ? void(QDir().mkpath(at("") + place)) : makeGame(qPrintable(place));
        settings_->setValue(Settings::RootPath, stored.isEmpty() ? QString() : at("") + stored);
        QCOMPARE(locateGame(*settings_, *dialogs_, {at("/c"), at("/d")}), !found.isEmpty());
        QCOMPARE(root(), found.isEmpty() ? QString() : at("") + found);
        QCOMPARE(int(dialogs_->messages.size()), found.isEmpty() ? 1 : 0); // and then the user cancels
    }

    void asksUntilAGameIsChosen()
    {
        QDir().mkpath(at("/noprogram/assets"));
        QDir().mkpath(at("/noassets/win32/kelvarion.exe"));
        makeGame("/mac", "/Kelvarion.app/Contents/MacOS/kelvarion");
        settings_->setValue(Settings::RootPath, at("/gone"));
        dialogs_->directories = QStringList{at("/noprogram"), at("/noassets"), at("/mac/../mac")};
        QVERIFY(locateGame(*settings_, *dialogs_, {}));
        QCOMPARE(root(), at("/mac"));
        const auto refused =
            QStringLiteral("Kelvarion Composer|No Kelvarion installation was found at the specified directory.");
        QCOMPARE(
            dialogs_->messages,
            (QStringList{QStringLiteral("Kelvarion Composer|Kelvarion Composer requires Kelvarion to be installed in "
                                        "order to work.\nPlease specify where Kelvarion is installed."),
                         refused, refused}));
        QCOMPARE(dialogs_->asked.first(), QStringLiteral("Please locate the Kelvarion directory.|"));
        QVERIFY(Settings(at("/Composer.cfg")).contains(Settings::RootPath)); // is saved
    }

private:
    QString at(const char *path) const { return QDir(directory_->path()).canonicalPath() + QLatin1String(path); }
    void makeGame(const char *path, const char *program = "/linux64/kelvarion") const
    {
        QDir().mkpath(at(path) + QStringLiteral("/assets"));
        QDir().mkpath(at(path) + QLatin1String(program));
    }
    QString root() const { return settings_->value(Settings::RootPath).toString(); }

    std::unique_ptr<QTemporaryDir> directory_;
    std::unique_ptr<Settings> settings_;
    std::unique_ptr<AnsweringDialogs> dialogs_;
};

QTEST_GUILESS_MAIN(TestGameLocation)
#include "test_game_location.moc"
