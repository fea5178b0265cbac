#include "app/AnsweringDialogs.h"
#include "app/GameLocation.h"
#include "settings/Settings.h"

#include <QTemporaryDir>
#include <QtTest>

class TestGameLocation : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void acceptsAStoredGameSilently();
    void findsTheUsualPlaces_data();
    void findsTheUsualPlaces();
    void asksUntilAGameIsChosen();
    void endsWhenTheUserCancels();

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

void TestGameLocation::init()
{
    QCoreApplication::setApplicationName(QStringLiteral("Kelvarion Composer"));
    settings_.reset();
    directory_ = std::make_unique<QTemporaryDir>();
    settings_ = std::make_unique<Settings>(at("/Composer.cfg"));
    dialogs_ = std::make_unique<AnsweringDialogs>();
}

void TestGameLocation::acceptsAStoredGameSilently()
{
    makeGame("/game");
    settings_->setValue(Settings::RootPath, at("/game"));
    QVERIFY(locateGame(*settings_, *dialogs_, {}));
    QVERIFY(dialogs_->asked.isEmpty() && dialogs_->messages.isEmpty());
}

void TestGameLocation::findsTheUsualPlaces_data()
{
    QTest::addColumn<QString>("installed"); // a game where it says game, an empty folder otherwise
    QTest::addColumn<QString>("found");
    const auto first = QStringLiteral("/Program Files/Steam/SteamApps/common/Kelvarion");
    const auto second = QStringLiteral("/Program Files (x86)/Steam/SteamApps/common/Kelvarion");
    QTest::newRow("first") << QStringLiteral("game /c") + first << QStringLiteral("/c") + first;
    QTest::newRow("second") << QStringLiteral("game /c") + second << QStringLiteral("/c") + second;
    QTest::newRow("second drive") << QStringLiteral("game /d") + second << QStringLiteral("/d") + second;
    QTest::newRow("empty first hides second")
        << QStringLiteral("game /c") + second + QStringLiteral("\nfolder /c") + first << QString();
    QTest::newRow("nowhere") << QString() << QString();
}

void TestGameLocation::findsTheUsualPlaces()
{
    QFETCH(QString, installed);
    QFETCH(QString, found);
    for (const auto &line : installed.split(u'\n', Qt::SkipEmptyParts)) {
        const auto path = line.section(u' ', 1);
        QDir().mkpath(at("") + path);
        if (line.startsWith(QStringLiteral("game")))
            makeGame(qPrintable(path));
    }
    QCOMPARE(findDefaultInstallation(*settings_, {at("/c"), at("/d")}), !found.isEmpty());
    QCOMPARE(root(), found.isEmpty() ? QString() : at("") + found);
}

void TestGameLocation::asksUntilAGameIsChosen()
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
    QCOMPARE(dialogs_->messages,
             (QStringList{QStringLiteral("Kelvarion Composer|Kelvarion Composer requires Kelvarion to be installed in "
                                         "order to work.\nPlease specify where Kelvarion is installed."),
                          refused, refused}));
    QCOMPARE(dialogs_->asked.first(), QStringLiteral("Please locate the Kelvarion directory.|"));
    QVERIFY(Settings(at("/Composer.cfg")).contains(Settings::RootPath)); // is saved
}

void TestGameLocation::endsWhenTheUserCancels()
{
    QVERIFY(!locateGame(*settings_, *dialogs_, {}));
    QCOMPARE(dialogs_->messages.size(), 1);
}

QTEST_GUILESS_MAIN(TestGameLocation)
#include "test_game_location.moc"
