#include "assets/GameInstallation.h"
#include "assets/InstrumentScan.h"
#include "assets/InstrumentSetModel.h"
#include "assets/ItemReader.h"
#include "assets/PackageWriter.h"
#include "assets/TuningReader.h"
#include "support/LogOneByOne.h"
#include "support/TestFolder.h"
#include "support/Thrown.h"

namespace {
// JSON with its quotes written as apostrophes.
QByteArray json(QByteArray text)
{
    return text.replace('\'', '"');
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

class Game : public TestFolder
{
public:
    using TestFolder::write;
    void write(const NamedFiles &files) const
    {
        for (const auto &[path, bytes] : files)
            write(path, bytes);
    }
    InstrumentSet scan(Mods mods = Mods::Load) const { return scanInstruments(path(), mods); }
};

void expectWarning(const Text &text)
{
    QTest::ignoreMessage(QtWarningMsg, qUtf8Printable(text));
}
} // namespace

class TestInstrumentCatalogue : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase() { logOneByOne(); }

    void installations_data()
    {
        const Rows<QString, bool> row("files", "isGame");
        row("Windows", "assets/packed.pak win32/kelvarion.exe", true);
        row("Linux, 32 bit", "assets/packed.pak linux32/kelvarion", true);
        row("Linux", "assets/packed.pak linux64/kelvarion", true);
        row("macOS", "assets/packed.pak Kelvarion.app/Contents/MacOS/kelvarion", true);
        row("no program", "assets/packed.pak", false);
        row("no assets", "win32/kelvarion.exe", false);
        row("program among the assets", "assets/packed.pak assets/linux64/kelvarion", false);
        row("assets is a file", "assets linux64/kelvarion", false);
    }
    void installations()
    {
        QFETCH(QString, files);
        const Game game;
        for (const auto &file : files.split(u' '))
            game.write(file, "x");
        QTEST(isGameInstallation(game.path()), "isGame");
    }

    void fadeouts_data()
    {
        const Rows<QByteArray, double> row("json", "seconds");
        row("raised", json("{'fadeout': 0.001}"), 0.005);
        row("kept", json("{'fadeout': 0.5}"), 0.5);
        row("absent", "{}", 0.005);
        row("comment after a value", "{\"fadeout\": 0.25 // slow\r\n}", 0.25);
        row("comment in a string", json("{'a': 'http://x', 'fadeout': 0.75}"), -1.0);
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

    void tuningRefusals()
    {
        const std::pair<QByteArray, const char *> refusals[] = {
            {"{", "Could not read tuning file for lute. Reason: unterminated object."},
            {"[]", "Could not read tuning file for lute, root element is not an object."},
            {json("{'mapping': {'62': {'f': 2}, '100': {'f': 1}, '9': {}}}"),
             "Could not map instrument note 9 for lute."}};
        for (const auto &[json, message] : refusals)
            QCOMPARE(thrownBy([&, &text = json] { readTuning(text, QStringLiteral("lute"), {}); }),
                     QLatin1String(message));
    }

    void mappedFiles_data()
    {
        const Rows<QByteArray, QString> row("entry", "files");
        row("file", json("'file': 'a.ogg'"), "base/a.ogg");
        row("files", json("'files': ['a.ogg', 7, 'b.ogg']"), "base/a.ogg base/b.ogg");
        row("file wins", json("'files': ['b.ogg'], 'file': 'a.ogg'"), "base/a.ogg");
        row("slash", json("'file': '/a.ogg'"), "base/a.ogg");
        row("two slashes", "\"file\": \"\\/\\/a.ogg\"", "base//a.ogg");
        row("kind", json("'file': '$instrument$/$instrument$.ogg'"), "base/lute/lute.ogg");
    }
    void mappedFiles()
    {
        QFETCH(QByteArray, entry);
        const auto notes = tuningOf("\"60\": {" + entry + json(", 'f': 8}")).notes;
        QTEST(notes.value(60).files.join(u' '), "files");
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
        QStringList read;
        for (auto note = notes.begin(); note != notes.end(); ++note)
            read += QStringLiteral("%1 %2 %3").arg(note.key()).arg(note->files.value(0)).arg(note->rate);
        QCOMPARE(read.join(u'|'), QStringLiteral("50 base/c 0.5|60 base/c 1|62 base/c 1.2|64 base/e 1|99 base/e 0.25"));
        QCOMPARE(notes.value(62).frequency, 12.0);
    }

    void looseSamplesStayInside()
    {
        const SampleBase base{QStringLiteral("/game/assets/sfx/lute/"), QStringLiteral("/game/assets")};
        expectWarning("Sample /game/assets/sfx/lute/../../../c.ogg of lute lies outside of its assets directory.");
        expectWarning("Sample /game/assets/sfx/lute/../../../d.ogg of lute lies outside of its assets directory.");
        const auto tuning = readTuning(json("{'mapping': {'60': {'files': ['../../c.ogg', '../../../c.ogg']},"
                                            "'61': {'file': '../../../d.ogg'}}}"),
                                       QStringLiteral("lute"), base);
        QCOMPARE(tuning.notes.keys(), QList<quint32>{60});
        QCOMPARE(tuning.notes.value(60).files, QStringList{QStringLiteral("/game/assets/sfx/lute/../../c.ogg")});
    }

    void icons_data()
    {
        const Rows<QByteArray, QSize> row("bytes", "size");
        row("small", picture(16, 8), {16, 8});
        row("largest", picture(1024, 1024), {1024, 1024});
        row("too wide", picture(1025, 1), {0, 0});
        row("too high", picture(1, 1025), {0, 0});
        row("cut short", picture(16, 16).left(40), {0, 0});
        row("no picture", "hello", {0, 0});
        row("other format", picture(4, 4, "ppm"), {0, 0});
    }
    void icons()
    {
        QFETCH(QByteArray, bytes);
        QTEST(decodeIcon(bytes).size(), "size");
    }

    void packagedInstrument()
    {
        const Game game;
        game.write("assets/packed.pak", CurrentPackage(instrumentFiles({}, "Lute")).bytes());
        const auto found = game.scan();
        QCOMPARE(found.names(), QStringList{QStringLiteral("Lute")});
        const auto &lute = found.instrument(QStringLiteral("Lute"));
        QCOMPARE(found.icon(QStringLiteral("Lute")).size(), QSize(16, 8));
        QCOMPARE(lute.tuning.fadeout, 0.5);
        QCOMPARE(lute.tuning.notes.value(60).files.value(0),
                 QStringLiteral("pak://%1::/sfx/instruments/lute/lute c.ogg").arg(game.path("assets/packed.pak")));
        QCOMPARE(thrownBy([&] { found.icon(QStringLiteral("Harp")); }), QStringLiteral("Instrument 'Harp' not found."));
    }

    void looseInstrument()
    {
        const Game game;
        game.write(instrumentFiles("assets/user", "Lute"));
        QCOMPARE(game.scan(Mods::Skip).instrument(QStringLiteral("Lute")).tuning.notes.value(60).files.value(0),
                 game.path("assets/user/sfx/instruments/lute/lute c.ogg"));
    }

    // Each source names "Shared" with a kind of its own, so the kind in the sample's path tells which one won.
    void firstFoundWins()
    {
        const std::pair<const char *, const char *> sources[] = {
            {"assets", "loose"}, {"assets/a.pak", "packA"}, {"assets/B.pak", "packB"}, {"assets/user", "user"},
            {"mods/a", "modA"},  {"mods/B", "modB"},        {"mods/x.pak", "pakX"},    {"mods/Y.modpak", "pakY"}};
        const Game game;
        for (auto source = std::size(sources); source-- > 0;) {
            const auto &[place, kind] = sources[source];
            if (QByteArray(place).endsWith("pak"))
                game.write(place, CurrentPackage(instrumentFiles({}, "Shared", kind)).bytes());
            else
                game.write(instrumentFiles(place, "Shared", kind));
            const auto sample = game.scan().instrument(QStringLiteral("Shared")).tuning.notes.value(60).files.value(0);
            QVERIFY2(sample.contains(QStringLiteral("/%1/").arg(QLatin1String(kind))), qUtf8Printable(sample));
            QCOMPARE(game.scan(Mods::Skip).contains(QStringLiteral("Shared")), source < 4);
        }
    }

    void modPaths_data()
    {
        // root: of the assets, inside the mod
        const Rows<QByteArray, QString, QString> row("description", "root", "warning");
        row("named", json("{'path': 'data'} // here"), "/data", "");
        row("slashes", json("{'path': '/data/'}"), "/data", "");
        row("dot", json("{'path': '.'}"), "", "");
        row("empty", json("{'path': ''}"), "", "");
        row("absent", "{}", "", "");
        row("no object", "[]", "", "Could not read mod description.");
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
        game.write("mods/p.modpak", LegacyPackage{packed}.bytes());
        if (!warning.isEmpty()) {
            expectWarning(game.path(looseDescription) + QStringLiteral(": ") + warning);
            expectWarning(QStringLiteral("pak://%1::pak.modinfo: ").arg(game.path("mods/p.modpak")) + warning);
        }
        QCOMPARE(game.scan().names(), (QStringList{QStringLiteral("Loose"), QStringLiteral("Packed")}));
    }

    void aModStaysInItsDirectory()
    {
        const Game game;
        game.write(instrumentFiles("mods/elsewhere/x", "Lute"));
        game.write("mods/m/m.modinfo", json("{'path': '../elsewhere/x'}"));
        expectWarning(game.path("mods/m/m.modinfo: the path leads out of the mod."));
        QCOMPARE(game.scan().names(), QStringList{QStringLiteral("None")});
    }

#ifdef Q_OS_UNIX
    void linksStayInTheMod()
    {
        const Game game;
        game.write(instrumentFiles("mods/m", "Lute"));
        game.write("outside/secret.instrument", instrumentItem("Secret"));
        game.write("mods/m/common/harp", instrumentItem("Harp"));
        const auto link = [&game](const char *target, const char *name) {
            return QFile::link(game.path(target), game.path(QStringLiteral("mods/m/") + QLatin1String(name)));
        };
        QVERIFY(link("outside/secret.instrument", "items/instruments/a.instrument"));
        QVERIFY(link("mods/m/common/harp", "items/instruments/b.instrument"));
        QVERIFY(link("outside/secret.instrument", "sfx/instruments/lute/lute c.ogg"));
        QVERIFY(QFile::link(game.path("mods/m"), game.path("mods/linked"))); // by whoever keeps it elsewhere
        const auto sample = QStringLiteral("Sample %1/sfx/instruments/lute/lute c.ogg of lute lies outside of its "
                                           "assets directory.");
        for (const auto *mod : {"mods/linked", "mods/m"}) {
            const auto path = game.path(mod);
            const auto file = path + QStringLiteral("/items/instruments/a.instrument");
            expectWarning(file + QStringLiteral(": the link leads out of the mod."));
            expectWarning(QStringLiteral("Could not read instrument file %1.").arg(file));
        }
        for (int instrument = 0; instrument < 2; ++instrument) // only the first of a name is decoded
            expectWarning(sample.arg(game.path("mods/linked")));
        const auto found = game.scan();
        QCOMPARE(found.names(), (QStringList{QStringLiteral("Harp"), QStringLiteral("Lute")}));
        QVERIFY(found.instrument(QStringLiteral("Lute")).tuning.notes.isEmpty());
    }
#endif

    void oneBadFileEndsNothing()
    {
        const Game game;
        const auto in = QStringLiteral("assets/items/instruments/");
        game.write(in + QStringLiteral("1.instrument"), "nonsense");
        game.write(in + QStringLiteral("2.instrument"), "[]");
        game.write(in + QStringLiteral("3.instrument"), instrumentItem("Lost", "lost"));
        game.write(in + QStringLiteral("4.instrument"), instrumentItem("Torn", "torn"));
        game.write(in + QStringLiteral("5.instrument"), instrumentItem("Stray", "../../../outside"));
        game.write(in + QStringLiteral("6.instrument"), "{}");
        game.write(in + QStringLiteral(".hidden.instrument"), "nonsense");
        QVERIFY(QFile::resize(game.TestFolder::write(in + QStringLiteral("7.instrument"), {}), qint64(2) << 30));
        game.write("assets/sfx/instruments/torn/tuning.config", "{");
        game.write("outside/tuning.config", "{}");
        game.write("assets/bad.pak", "KVAsset7");
        auto files = instrumentFiles({}, "Lute");
        files[1].second = "not a picture";
        game.write("assets/good.pak", CurrentPackage(files).bytes());
        files.erase(files.begin() + 1);
        files[0].second = instrumentItem("Bare");
        game.write("assets/plain.pak", CurrentPackage(files).bytes());

        const auto bad = QStringLiteral("Could not read instrument file ") + game.path(in);
        expectWarning(bad + QStringLiteral("1.instrument."));
        expectWarning(bad + QStringLiteral("2.instrument. Root node is not an object."));
        expectWarning("No tuning file found for instrument Lost!");
        expectWarning("Could not read tuning file for torn. Reason: unterminated object.");
        expectWarning("No tuning file found for instrument Stray!");
        expectWarning(bad + QStringLiteral("6.instrument. It names no instrument."));
        expectWarning(game.path(in + QStringLiteral("7.instrument is too large.")));
        expectWarning(bad + QStringLiteral("7.instrument."));
        expectWarning(QStringLiteral("Failed to load pak file: ") + game.path("assets/bad.pak"));
        expectWarning("Could not read the icon /items/instruments/icon.png of instrument Lute.");
        expectWarning("tryGetFile failed on /items/instruments/icon.png: File not found");
        expectWarning("No icon file found for instrument Bare!");
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

    // Between places, and between the instruments of a folder or a package.
    void aScanCanBeCancelled()
    {
        const Game game;
        game.write(instrumentFiles("assets", "Lute"));
        game.write("assets/a.pak", CurrentPackage(instrumentFiles({}, "Oboe") + instrumentFiles({}, "Viola")).bytes());
        game.write(instrumentFiles("assets/user", "Harp"));
        game.write("mods/m/m.modinfo", "{}");
        const auto steps =
            QStringLiteral("assets 0|assets 0|assets/a.pak 1|assets/a.pak 1|assets/a.pak 1|assets/user 2|"
                           "assets/user 2|mods/m 3");
        const QVector<int> foundBefore{0, 0, 1, 1, 2, 3, 3, 4, 4};
        for (int allowed = 0; allowed < foundBefore.size(); ++allowed) {
            QStringList taken;
            const auto found = scanInstruments(game.path(), Mods::Load, [&](const ScanProgress &progress) {
                taken.append(QDir(game.path()).relativeFilePath(progress.path) +
                             QStringLiteral(" %1").arg(progress.done));
                return taken.size() <= allowed && progress.total == 4;
            });
            QCOMPARE(taken, steps.split(u'|').mid(0, allowed + 1));
            QCOMPARE(found.contains(QStringLiteral("None")) ? 0 : found.names().size(), foundBefore[allowed]);
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
        const auto data = [&list](int row, int role) { return list.data(list.index(row), role); };
        QCOMPARE(data(0, Qt::DisplayRole).toString() + data(1, Qt::DisplayRole).toString(), QStringLiteral("ab"));
        QCOMPARE(data(1, Qt::DecorationRole).value<QImage>().size(), QSize(3, 4));
        QCOMPARE(data(1, 256).value<Instrument>().tuning.fadeout, 0.25);
        QVERIFY(!data(1, Qt::ToolTipRole).isValid());
        QVERIFY(!data(2, Qt::DisplayRole).isValid());
        QVERIFY(!list.data(list.index(0, 1), Qt::DisplayRole).isValid());
        QVERIFY(!list.data({}, Qt::DisplayRole).isValid());
    }
};

QTEST_GUILESS_MAIN(TestInstrumentCatalogue)
#include "test_instrument_catalogue.moc"
