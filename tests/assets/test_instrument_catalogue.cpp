#include "assets/GameInstallation.h"
#include "assets/InstrumentScan.h"
#include "assets/InstrumentSetModel.h"
#include "assets/ItemReader.h"
#include "assets/PackageWriter.h"
#include "assets/Thrown.h"
#include "assets/TuningReader.h"

#include <QBuffer>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>
#include <QtTest>

namespace {
// JSON with its quotes written as apostrophes.
QByteArray json(QByteArray text)
{
    return text.replace('\'', '"');
}

QByteArray picture(int width, int height, const char *format = "png")
{
    QBuffer buffer;
    QImage image(width, height, QImage::Format_ARGB32);
    image.fill(Qt::green);
    image.save(&buffer, format);
    return buffer.data();
}

QByteArray item(const char *name, const char *kind = "lute")
{
    return QByteArray("{ // an item\n\"shortdescription\": \"") + name + "\", \"kind\": \"" + kind +
           "\", \"inventoryIcon\": \"icon.png\"}";
}

const QByteArray tuningBytes = json("{'fadeout': 0.5, 'mapping': {'60': {'file': '/$instrument$ c.ogg', 'f': 261.6}}}");

// An instrument's files below `root`, named as in a package.
NamedFiles instrumentFiles(const QString &root, const char *name, const char *kind = "lute")
{
    return {{root + QStringLiteral("/items/instruments/%1.instrument").arg(QLatin1String(name)), item(name, kind)},
            {root + QStringLiteral("/items/instruments/icon.png"), picture(16, 8)},
            {root + QStringLiteral("/sfx/instruments/%1/tuning.config").arg(QLatin1String(kind)), tuningBytes}};
}

NamedFiles operator+(NamedFiles left, const NamedFiles &right)
{
    left.insert(left.end(), right.begin(), right.end());
    return left;
}

Tuning tuningOf(const QByteArray &mapping)
{
    return readTuning("{\"mapping\": {" + mapping + "}}", QStringLiteral("lute"), {QStringLiteral("base/"), {}});
}

class Game
{
public:
    void write(const QString &path, const QByteArray &bytes) const
    {
        QFile file(directory_.filePath(path));
        QDir().mkpath(QFileInfo(file).path());
        if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size())
            qFatal("cannot write the test's files");
    }
    void write(const NamedFiles &files) const
    {
        for (const auto &[path, bytes] : files)
            write(path, bytes);
    }
    QString path(const QString &inner = {}) const { return directory_.filePath(inner); }
    InstrumentSet scan(Mods mods = Mods::Load) const { return scanInstruments(directory_.path(), mods); }

private:
    QTemporaryDir directory_;
};

void expectWarning(const QString &text)
{
    QTest::ignoreMessage(QtWarningMsg, qUtf8Printable(text));
}
} // namespace

class TestInstrumentCatalogue : public QObject
{
    Q_OBJECT

private slots:
    void installations_data()
    {
        QTest::addColumn<QStringList>("files");
        QTest::addColumn<bool>("isGame");
        const auto asset = QStringLiteral("assets/packed.pak");
        for (const char *program : {"win32/kelvarion.exe", "linux32/kelvarion", "linux64/kelvarion",
                                    "Kelvarion.app/Contents/MacOS/kelvarion"})
            QTest::newRow(program) << QStringList{asset, QLatin1String(program)} << true;
        QTest::newRow("no program") << QStringList{asset} << false;
        QTest::newRow("no assets") << QStringList{QStringLiteral("win32/kelvarion.exe")} << false;
        QTest::newRow("program among the assets")
            << QStringList{asset, QStringLiteral("assets/linux64/kelvarion")} << false;
        QTest::newRow("assets is a file")
            << QStringList{QStringLiteral("assets"), QStringLiteral("linux64/kelvarion")} << false;
    }
    void installations()
    {
        QFETCH(QStringList, files);
        const Game game;
        for (const auto &file : files)
            game.write(file, "x");
        QTEST(isGameInstallation(game.path()), "isGame");
    }

    void fadeouts_data()
    {
        QTest::addColumn<QByteArray>("json");
        QTest::addColumn<double>("seconds");
        QTest::newRow("raised") << json("{'fadeout': 0.001}") << 0.005;
        QTest::newRow("kept") << json("{'fadeout': 0.5}") << 0.5;
        QTest::newRow("absent") << QByteArray("{}") << 0.005;
        QTest::newRow("comment after a value") << QByteArray("{\"fadeout\": 0.25 // slow\r\n}") << 0.25;
        QTest::newRow("comment in a string") << json("{'a': 'http://x', 'fadeout': 0.75}") << -1.0;
    }
    void fadeouts()
    {
        QFETCH(QByteArray, json);
        QFETCH(double, seconds);
        double read = -1;
        const auto message = thrownBy([&] { read = readTuning(json, QStringLiteral("lute"), {}).fadeout; });
        QCOMPARE(read, seconds);
        QCOMPARE(message == QLatin1String("nothing"), seconds > 0);
    }

    void tuningRefusals_data()
    {
        QTest::addColumn<QByteArray>("json");
        QTest::addColumn<QString>("message");
        QTest::newRow("not JSON") << QByteArray("{")
                                  << QStringLiteral(
                                         "Could not read tuning file for lute. Reason: unterminated object.");
        QTest::newRow("no object") << QByteArray("[]")
                                   << QStringLiteral(
                                          "Could not read tuning file for lute, root element is not an object.");
        QTest::newRow("nothing to borrow") << json("{'mapping': {'62': {'f': 2}, '100': {'f': 1}, '9': {}}}")
                                           << QStringLiteral("Could not map instrument note 9 for lute.");
    }
    void tuningRefusals()
    {
        QFETCH(QByteArray, json);
        QTEST(thrownBy([&] { readTuning(json, QStringLiteral("lute"), {}); }), "message");
    }

    void unreadableTuningFile()
    {
        QCOMPARE(thrownBy([] { readTuningFile(QStringLiteral("/no/file"), QStringLiteral("lute"), {}); }),
                 QStringLiteral("Could not read tuning file for lute. Reason: Could not open file."));
    }

    void mappedFiles_data()
    {
        QTest::addColumn<QByteArray>("entry");
        QTest::addColumn<QStringList>("files");
        const auto a = QStringLiteral("base/a.ogg");
        const auto b = QStringLiteral("base/b.ogg");
        QTest::newRow("file") << json("'file': 'a.ogg'") << QStringList{a};
        QTest::newRow("files") << json("'files': ['a.ogg', 7, 'b.ogg']") << QStringList{a, b};
        QTest::newRow("file wins") << json("'files': ['b.ogg'], 'file': 'a.ogg'") << QStringList{a};
        QTest::newRow("slash") << json("'file': '/a.ogg'") << QStringList{a};
        QTest::newRow("two slashes") << QByteArray("\"file\": \"\\/\\/a.ogg\"")
                                     << QStringList{QStringLiteral("base//a.ogg")};
        QTest::newRow("kind") << json("'file': '$instrument$/$instrument$.ogg'")
                              << QStringList{QStringLiteral("base/lute/lute.ogg")};
    }
    void mappedFiles()
    {
        QFETCH(QByteArray, entry);
        const auto notes = tuningOf("\"60\": {" + entry + json(", 'f': 8}")).notes;
        QTEST(notes.value(60).files, "files");
        QCOMPARE(notes.value(60).rate, 1.0);
        QCOMPARE(notes.value(60).frequency, 8.0);
    }

    void noteNumbers()
    {
        const auto entry = json("': {'file': 'a'}");
        const auto notes = tuningOf("\"07" + entry + ",\"0" + entry + ",\"abc" + entry + ",\"-3" + entry +
                                    ",\"4294967296" + entry + json(",'12': 'no object', '300") + entry)
                               .notes;
        QCOMPARE(notes.keys(), (QList<quint32>{7, 300}));
    }

    void gapsBorrow()
    {
        const auto notes = tuningOf(json("'50': {'f': 5}, '60': {'file': 'c', 'f': 10}, '62': {'f': 12},"
                                         "'64': {'file': 'e', 'f': 20}, '99': {'f': 5}"))
                               .notes;
        const QMap<quint32, std::pair<QString, double>> expected{{50, {QStringLiteral("base/c"), 0.5}},
                                                                 {60, {QStringLiteral("base/c"), 1.0}},
                                                                 {62, {QStringLiteral("base/c"), 1.2}},
                                                                 {64, {QStringLiteral("base/e"), 1.0}},
                                                                 {99, {QStringLiteral("base/e"), 0.25}}};
        QMap<quint32, std::pair<QString, double>> read;
        for (auto note = notes.begin(); note != notes.end(); ++note)
            read.insert(note.key(), {note->files.value(0), note->rate});
        QCOMPARE(read, expected);
        QCOMPARE(notes.value(62).frequency, 12.0);
    }

    void looseSamplesStayInside()
    {
        const SampleBase base{QStringLiteral("/game/assets/sfx/lute/"), QStringLiteral("/game/assets")};
        expectWarning(QStringLiteral(
            "Sample /game/assets/sfx/lute/../../../c.ogg of lute lies outside of its assets directory."));
        const auto tuning = readTuning(json("{'mapping': {'60': {'files': ['../../c.ogg', '../../../c.ogg']}}}"),
                                       QStringLiteral("lute"), base);
        QCOMPARE(tuning.notes.value(60).files, QStringList{QStringLiteral("/game/assets/sfx/lute/../../c.ogg")});
    }

    void icons_data()
    {
        QTest::addColumn<QByteArray>("bytes");
        QTest::addColumn<QSize>("size");
        QTest::newRow("small") << picture(16, 8) << QSize(16, 8);
        QTest::newRow("largest") << picture(1024, 1024) << QSize(1024, 1024);
        QTest::newRow("too wide") << picture(1025, 1) << QSize(0, 0);
        QTest::newRow("too high") << picture(1, 1025) << QSize(0, 0);
        QTest::newRow("cut short") << picture(16, 16).left(40) << QSize(0, 0);
        QTest::newRow("no picture") << QByteArray("hello") << QSize(0, 0);
        QTest::newRow("other format") << picture(4, 4, "ppm") << QSize(0, 0);
    }
    void icons()
    {
        QFETCH(QByteArray, bytes);
        QTEST(decodeIcon(bytes).size(), "size");
    }

    void packagedInstrument()
    {
        const Game game;
        game.write(QStringLiteral("assets/packed.pak"), CurrentPackage(instrumentFiles({}, "Lute")).bytes());
        const auto found = game.scan();
        QCOMPARE(found.names(), QStringList{QStringLiteral("Lute")});
        const auto &lute = found.instrument(QStringLiteral("Lute"));
        QCOMPARE(found.icon(QStringLiteral("Lute")).size(), QSize(16, 8));
        QCOMPARE(lute.tuning.fadeout, 0.5);
        QCOMPARE(lute.tuning.notes.value(60).files.value(0),
                 QStringLiteral("pak://%1::/sfx/instruments/lute/lute c.ogg")
                     .arg(game.path(QStringLiteral("assets/packed.pak"))));
        QCOMPARE(thrownBy([&] { found.icon(QStringLiteral("Harp")); }), QStringLiteral("Instrument 'Harp' not found."));
    }

    void looseInstrument()
    {
        const Game game;
        game.write(instrumentFiles(QStringLiteral("assets/user"), "Lute"));
        QCOMPARE(game.scan(Mods::Skip).instrument(QStringLiteral("Lute")).tuning.notes.value(60).files.value(0),
                 game.path(QStringLiteral("assets/user/sfx/instruments/lute/lute c.ogg")));
    }

    // Each source names "Shared" with a kind of its own, so the kind in the sample's path tells which one won.
    void firstFoundWins_data()
    {
        QTest::addColumn<int>("absent"); // how many of the sources, first to last, are not there
        QTest::addColumn<QString>("winner");
        const char *kinds[] = {"loose", "packA", "packB", "user", "modA", "modB", "pakX", "pakY"};
        for (int i = 0; i < 8; ++i)
            QTest::newRow(kinds[i]) << i << QString::fromLatin1(kinds[i]);
    }
    void firstFoundWins()
    {
        QFETCH(int, absent);
        QFETCH(QString, winner);
        const Game game;
        const auto loose = [](const char *root, const char *kind) {
            return instrumentFiles(QLatin1String(root), "Shared", kind);
        };
        const auto package = [](const char *kind) {
            return CurrentPackage(instrumentFiles({}, "Shared", kind)).bytes();
        };
        const std::vector<NamedFiles> sources{loose("assets", "loose"),
                                              {{QStringLiteral("assets/a.pak"), package("packA")}},
                                              {{QStringLiteral("assets/B.pak"), package("packB")}},
                                              loose("assets/user", "user"),
                                              loose("mods/a", "modA"),
                                              loose("mods/B", "modB"),
                                              {{QStringLiteral("mods/x.pak"), package("pakX")}},
                                              {{QStringLiteral("mods/Y.modpak"), package("pakY")}}};
        for (auto source = sources.rbegin(); source != sources.rend() - absent; ++source)
            game.write(*source);
        const auto sample = game.scan().instrument(QStringLiteral("Shared")).tuning.notes.value(60).files.value(0);
        QVERIFY2(sample.contains(QStringLiteral("/%1/").arg(winner)), qUtf8Printable(sample));
        QCOMPARE(game.scan(Mods::Skip).contains(QStringLiteral("Shared")), absent < 4);
    }

    void modPaths_data()
    {
        QTest::addColumn<QByteArray>("description");
        QTest::addColumn<QString>("root"); // of the assets, inside the mod
        QTest::addColumn<QString>("warning");
        const auto here = QString();
        const auto sub = QStringLiteral("/data");
        QTest::newRow("named") << json("{'path': 'data'} // here") << sub << QString();
        QTest::newRow("slashes") << json("{'path': '/data/'}") << sub << QString();
        QTest::newRow("dot") << json("{'path': '.'}") << here << QString();
        QTest::newRow("empty") << json("{'path': ''}") << here << QString();
        QTest::newRow("absent") << QByteArray("{}") << here << QString();
        QTest::newRow("no object") << QByteArray("[]") << here << QStringLiteral("Could not read mod description.");
    }
    void modPaths()
    {
        QFETCH(QByteArray, description);
        QFETCH(QString, root);
        QFETCH(QString, warning);
        const Game game;
        game.write(instrumentFiles(QStringLiteral("mods/m") + root, "Loose"));
        const auto looseDescription = QStringLiteral("mods/m/m.modinfo");
        game.write(looseDescription, description);
        const auto packed = instrumentFiles(root, "Packed") + NamedFiles{{QStringLiteral("pak.modinfo"), description}};
        game.write(QStringLiteral("mods/p.modpak"), LegacyPackage{packed}.bytes());
        if (!warning.isEmpty()) {
            expectWarning(game.path(looseDescription) + QStringLiteral(": ") + warning);
            expectWarning(QStringLiteral("pak://%1::pak.modinfo: ").arg(game.path(QStringLiteral("mods/p.modpak"))) +
                          warning);
        }
        QCOMPARE(game.scan().names(), (QStringList{QStringLiteral("Loose"), QStringLiteral("Packed")}));
    }

    void aModStaysInItsDirectory()
    {
        const Game game;
        game.write(instrumentFiles(QStringLiteral("mods/elsewhere/x"), "Lute"));
        game.write(QStringLiteral("mods/m/m.modinfo"), json("{'path': '../elsewhere/x'}"));
        expectWarning(game.path(QStringLiteral("mods/m/m.modinfo: the path leads out of the mod.")));
        QCOMPARE(game.scan().names(), QStringList{QStringLiteral("None")});
    }

    void oneBadFileEndsNothing()
    {
        const Game game;
        const auto in = QStringLiteral("assets/items/instruments/");
        game.write(in + QStringLiteral("1.instrument"), "nonsense");
        game.write(in + QStringLiteral("2.instrument"), "[]");
        game.write(in + QStringLiteral("3.instrument"), item("Lost", "lost"));
        game.write(in + QStringLiteral("4.instrument"), item("Torn", "torn"));
        game.write(in + QStringLiteral("5.instrument"), item("Stray", "../../../outside"));
        game.write(in + QStringLiteral("6.instrument"), "{}");
        game.write(in + QStringLiteral(".hidden.instrument"), "nonsense");
        game.write(QStringLiteral("assets/sfx/instruments/torn/tuning.config"), "{");
        game.write(QStringLiteral("outside/tuning.config"), tuningBytes);
        game.write(QStringLiteral("assets/bad.pak"), "KVAsset7");
        auto files = instrumentFiles({}, "Lute");
        files[1].second = "not a picture";
        game.write(QStringLiteral("assets/good.pak"), CurrentPackage(files).bytes());
        files.erase(files.begin() + 1);
        files[0].second = item("Bare");
        game.write(QStringLiteral("assets/plain.pak"), CurrentPackage(files).bytes());

        const auto bad = QStringLiteral("Could not read instrument file ") + game.path(in);
        expectWarning(bad + QStringLiteral("1.instrument."));
        expectWarning(bad + QStringLiteral("2.instrument. Root node is not an object."));
        expectWarning(QStringLiteral("No tuning file found for instrument Lost!"));
        expectWarning(QStringLiteral("Could not read tuning file for torn. Reason: unterminated object."));
        expectWarning(QStringLiteral("No tuning file found for instrument Stray!"));
        expectWarning(bad + QStringLiteral("6.instrument. It names no instrument."));
        expectWarning(QStringLiteral("Failed to load pak file: ") + game.path(QStringLiteral("assets/bad.pak")));
        expectWarning(QStringLiteral("Could not read the icon /items/instruments/icon.png of instrument Lute."));
        expectWarning(QStringLiteral("tryGetFile failed on /items/instruments/icon.png: File not found"));
        expectWarning(QStringLiteral("No icon file found for instrument Bare!"));
        const auto found = game.scan();
        QCOMPARE(found.names(), (QStringList{QStringLiteral("Bare"), QStringLiteral("Lute")}));
        QVERIFY(found.icon(QStringLiteral("Bare")).isNull());
    }

    void nothingThere()
    {
        const auto found = Game().scan();
        QCOMPARE(found.names(), QStringList{QStringLiteral("None")});
        QVERIFY(found.icon(QStringLiteral("None")).isNull());
        QVERIFY(found.instrument(QStringLiteral("None")).tuning.notes.isEmpty());
    }

    void aScanCanBeCancelled()
    {
        const Game game;
        game.write(instrumentFiles(QStringLiteral("assets"), "Lute"));
        game.write(instrumentFiles(QStringLiteral("assets/user"), "Harp"));
        game.write(QStringLiteral("mods/m/m.modinfo"), "{}");
        const auto assets = game.path(QStringLiteral("assets"));
        const auto user = game.path(QStringLiteral("assets/user"));
        const auto mod = game.path(QStringLiteral("mods/m"));
        const QStringList steps{assets + QStringLiteral(" 0/3"), assets + QStringLiteral(" 0/3"),
                                user + QStringLiteral(" 1/3"), user + QStringLiteral(" 1/3"),
                                mod + QStringLiteral(" 2/3")};
        const QVector<int> foundBefore{0, 0, 1, 1, 2, 2};
        for (int allowed = 0; allowed <= 5; ++allowed) {
            QStringList taken;
            const auto found = scanInstruments(game.path(), Mods::Load, [&](const ScanProgress &progress) {
                taken.append(QStringLiteral("%1 %2/%3").arg(progress.path).arg(progress.done).arg(progress.total));
                return taken.size() <= allowed;
            });
            QCOMPARE(taken, steps.mid(0, allowed + 1));
            QCOMPARE(found.contains(QStringLiteral("Lute")) + found.contains(QStringLiteral("Harp")),
                     foundBefore[allowed]);
        }
    }

    void model()
    {
        InstrumentSet set;
        set.add({QStringLiteral("b"), QImage(3, 4, QImage::Format_ARGB32), {0.25, {}}});
        set.add({QStringLiteral("a"), {}, {}});
        set.add({QStringLiteral("b"), {}, {}});
        const InstrumentSetModel list(set);
        QCOMPARE(list.rowCount(), 2);
        QCOMPARE(list.rowCount(list.index(0)), 0);
        QCOMPARE(list.data(list.index(0), Qt::DisplayRole).toString(), QStringLiteral("a"));
        QCOMPARE(list.data(list.index(1), Qt::DisplayRole).toString(), QStringLiteral("b"));
        QCOMPARE(list.data(list.index(1), Qt::DecorationRole).value<QImage>().size(), QSize(3, 4));
        QCOMPARE(list.data(list.index(1), 256).value<Instrument>().tuning.fadeout, 0.25);
        QVERIFY(!list.data(list.index(1), Qt::ToolTipRole).isValid());
        QVERIFY(!list.data(list.index(2), Qt::DisplayRole).isValid());
        QVERIFY(!list.data(list.index(0, 1), Qt::DisplayRole).isValid());
        QVERIFY(!list.data({}, Qt::DisplayRole).isValid());
    }
};

QTEST_GUILESS_MAIN(TestInstrumentCatalogue)
#include "test_instrument_catalogue.moc"
