#include "assets/PackageWriter.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QProcess>
#include <QTemporaryDir>
#include <QtTest>

namespace {
struct Outcome
{
    int status;
    QByteArray out;
    QByteArray error;
};

Outcome run(const QStringList &arguments)
{
    QProcess program;
    program.start(QStringLiteral(COMPOSER_CLI), arguments);
    if (!program.waitForFinished() || program.exitStatus() != QProcess::NormalExit)
        qFatal("the program did not end by itself");
    return {program.exitCode(), program.readAllStandardOutput(), program.readAllStandardError()};
}

const auto instruments = QStringLiteral("instruments");
const auto game = QStringLiteral("--game");
} // namespace

// The commands of kelvarion-composer-cli that read game assets, run as a user runs them.
class TestAssetCommands : public QObject
{
    Q_OBJECT

    QTemporaryDir directory_;

    QString path(const QString &name) const { return directory_.filePath(name); }

    void write(const QString &name, const QByteArray &bytes) const
    {
        QFile file(path(name));
        QDir().mkpath(QFileInfo(file).path());
        if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size())
            qFatal("cannot write the test's files");
    }

private slots:
    void initTestCase()
    {
        const auto item = QStringLiteral("/items/instruments/lute.instrument");
        const auto tuning = QStringLiteral("/sfx/instruments/lute/tuning.config");
        const NamedFiles files{
            {item, R"({"shortdescription": "Lute é", "kind": "lute"})"},
            {tuning, R"({"fadeout": 0.25, "mapping": {"60": {"file": "c", "f": 200}, "100": {"f": 300}}})"}};
        write(QStringLiteral("game/assets/packed.pak"), CurrentPackage(files).bytes());
        write(QStringLiteral("game/linux64/kelvarion"), "x");
        write(QStringLiteral("game/mods/m/items/instruments/b.instrument"),
              R"({"shortdescription": "Bell", "kind": "bell"})");
        write(QStringLiteral("game/mods/m/sfx/instruments/bell/tuning.config"), "{}");
        write(QStringLiteral("none/assets/empty"), "");
        write(QStringLiteral("legacy.pak"),
              LegacyPackage{{{QStringLiteral("/ü"), QByteArray("\0\xFF\n", 3)}, {QStringLiteral("/b"), ""}}}.bytes());
    }

    void instrumentsAsJson()
    {
        const auto [status, out, error] =
            run({instruments, game, path(QStringLiteral("game")), QStringLiteral("--json")});
        QCOMPARE(status, 0);
        QCOMPARE(error, QByteArray());
        QVERIFY(out.indexOf("\"60\"") < out.indexOf("\"100\""));
        const auto file =
            QStringLiteral("pak://%1::/sfx/instruments/lute/c").arg(path(QStringLiteral("game/assets/packed.pak")));
        const QByteArray expected = R"({"instruments": [{"name": "Lute é", "iconWidth": 0, "iconHeight": 0,
            "fadeout": 0.25, "notes": {"60": {"files": ["FILE"], "rate": 1, "frequency": 200},
                                       "100": {"files": ["FILE"], "rate": 1.5, "frequency": 300}}}]})";
        QCOMPARE(QJsonDocument::fromJson(out),
                 QJsonDocument::fromJson(QByteArray(expected).replace("FILE", file.toUtf8())));
    }

    void instrumentsWithMods()
    {
        const auto [status, out, error] =
            run({instruments, game, path(QStringLiteral("game")), QStringLiteral("--mods")});
        QCOMPARE(status, 0);
        QCOMPARE(out, QByteArray("Bell: no notes\nLute é: notes 60 to 100, 1 samples\n"));
    }

    void packagePaths()
    {
        const auto [status, out, error] =
            run({QStringLiteral("pak"), QStringLiteral("list"), path(QStringLiteral("legacy.pak"))});
        QCOMPARE(status, 0);
        QCOMPARE(out, QByteArray("/ü\n/b\n"));
    }

    void packageFiles()
    {
        const QStringList extract{QStringLiteral("pak"), QStringLiteral("extract"), path(QStringLiteral("legacy.pak"))};
        const QByteArray bytes("\0\xFF\n", 3);
        QCOMPARE(run(extract + QStringList{QStringLiteral("/ü")}).out, bytes);
        const auto target = path(QStringLiteral("target"));
        const auto [status, out, error] =
            run(extract + QStringList{QStringLiteral("/ü"), QStringLiteral("--output"), target});
        QCOMPARE(status, 0);
        QCOMPARE(out + error, QByteArray());
        QFile written(target);
        QVERIFY(written.open(QIODevice::ReadOnly));
        QCOMPARE(written.readAll(), bytes);
    }

    void failures_data()
    {
        QTest::addColumn<QStringList>("arguments");
        QTest::addColumn<QString>("blamed");
        QTest::addColumn<QString>("message");
        const auto pak = QStringLiteral("pak");
        const auto list = QStringLiteral("list");
        const auto extract = QStringLiteral("extract");
        const auto legacy = path(QStringLiteral("legacy.pak"));
        const auto noGame = path(QStringLiteral("none"));
        const auto incompatible = QStringLiteral("Could not find compatible pak reader.");
        QTest::newRow("no game") << QStringList{instruments, game, noGame} << noGame
                                 << QStringLiteral("No Kelvarion installation was found at the specified directory.");
        QTest::newRow("no package") << QStringList{pak, list, noGame} << noGame << incompatible;
        QTest::newRow("no such file") << QStringList{pak, extract, legacy, QStringLiteral("/none")} << legacy
                                      << QStringLiteral("File not found");
        QTest::newRow("unwritable")
            << QStringList{pak, extract, legacy, QStringLiteral("/b"), QStringLiteral("--output"), noGame} << noGame
            << QString();
    }
    void failures()
    {
        QFETCH(QStringList, arguments);
        QFETCH(QString, blamed);
        QFETCH(QString, message);
        const auto [status, out, error] = run(arguments);
        QCOMPARE(status, 1);
        QCOMPARE(out, QByteArray());
        const auto line = QStringLiteral("kelvarion-composer-cli: %1: %2").arg(blamed, message).toUtf8();
        QVERIFY2(error.startsWith(line) && error.count('\n') == 1, error);
    }

    void wrongUsage_data()
    {
        QTest::addColumn<QString>("words");
        for (const char *words :
             {"", "pak", "pak list", "pak list a b", "pak extract a", "pak list a --game b", "instruments",
              "instruments --game a b", "instruments --game a --output b", "instruments --game a --merge",
              "inspect a --game b", "inspect a --output b", "convert a"})
            QTest::newRow(words) << QString::fromLatin1(words);
    }
    void wrongUsage()
    {
        QFETCH(QString, words);
        const auto [status, out, error] = run(words.split(QLatin1Char(' '), Qt::SkipEmptyParts));
        QCOMPARE(status, 2);
        QCOMPARE(out, QByteArray());
        QVERIFY(error.contains("Usage:"));
    }
};

QTEST_GUILESS_MAIN(TestAssetCommands)
#include "test_asset_commands.moc"
