#include "Program.h"
#include "assets/PackageWriter.h"

#include <QJsonDocument>

// The commands of kelvarion-composer-cli that read game assets.
class TestAssetCommands : public QObject
{
    Q_OBJECT

    const TestFolder folder_;
    const QByteArray bytes_ = QByteArray("\0\xFF\n", 3);

private slots:
    void initTestCase()
    {
        const NamedFiles files{
            {"/items/instruments/lute.instrument", R"({"shortdescription": "Lute é", "kind": "lute"})"},
            {"/sfx/instruments/lute/tuning.config",
             R"({"fadeout": 0.25, "mapping": {"60": {"file": "c", "f": 200}, "100": {"f": 300}}})"}};
        folder_.write("game/assets/packed.pak", CurrentPackage(files).bytes());
        folder_.write("game/linux64/kelvarion", "x");
        folder_.write("game/mods/m/items/instruments/b.instrument", R"({"shortdescription": "Bell", "kind": "bell"})");
        folder_.write("game/mods/m/sfx/instruments/bell/tuning.config", "{}");
        folder_.write("none/assets/empty", "");
        folder_.write("legacy.pak", LegacyPackage{{{"/ü", bytes_}, {"/b\033c", ""}}}.bytes());
    }

    void instrumentsAsJson()
    {
        const auto [status, out, error] =
            run(folder_, QStringLiteral("instruments --json --game ") + folder_.path("game"));
        QCOMPARE(status, 0);
        QCOMPARE(error, QByteArray());
        QVERIFY(out.indexOf("\"60\"") < out.indexOf("\"100\""));
        const auto file =
            QStringLiteral("pak://%1::/sfx/instruments/lute/c").arg(folder_.path("game/assets/packed.pak"));
        const QByteArray expected = R"({"instruments": [{"name": "Lute é", "iconWidth": 0, "iconHeight": 0,
            "fadeout": 0.25, "notes": {"60": {"files": ["FILE"], "rate": 1, "frequency": 200},
                                       "100": {"files": ["FILE"], "rate": 1.5, "frequency": 300}}}]})";
        QCOMPARE(QJsonDocument::fromJson(out),
                 QJsonDocument::fromJson(QByteArray(expected).replace("FILE", file.toUtf8())));
    }

    void output_data()
    {
        const Rows<QString, QByteArray> row("words", "expected");
        row("with mods", "instruments --game game --mods", "Bell: no notes\nLute é: notes 60 to 100, 1 samples\n");
        row("paths", "pak list legacy.pak", "/ü\n/b\uFFFDc\n");
        row("file", "pak extract legacy.pak /ü", bytes_);
        row("file to a file", "pak extract legacy.pak /ü --output target", "");
    }
    void output()
    {
        QFETCH(QString, words);
        const auto [status, out, error] = run(folder_, words);
        QCOMPARE(status, 0);
        QTEST(out, "expected");
        QCOMPARE(error, QByteArray());
        QCOMPARE(folder_.read("target"), words.contains(u"target") ? bytes_ : QByteArray());
    }

    void songsNameInstruments()
    {
        folder_.write("two.abc", "X:1\nT:Lute\nK:C\nCDE\n\nX:2\nT:Bell\nI:Instrument:Lute é\nK:C\nC\n");
        QCOMPARE(run(folder_, "song two.abc --game game --mods --instrument Bell --output two.kvsong").error,
                 QByteArray());
        const auto song = QJsonDocument::fromJson(folder_.read("two.kvsong"));
        QStringList names;
        for (const auto part : song[QStringLiteral("parts")].toArray())
            names.append(part.toObject()[QStringLiteral("instrument")].toString());
        QCOMPARE(names, (QStringList{QStringLiteral("Bell"), QStringLiteral("Lute é")}));
    }

    void failures_data()
    {
        const Rows<QString, QByteArray> row("words", "error");
        row("no game", "instruments --game none",
            "none: No Kelvarion installation was found at the specified directory.");
        row("a song without a game", "song two.abc --game none --output none.kvsong",
            "none: No Kelvarion installation was found at the specified directory.");
        row("a song's instrument", "song two.abc --game game --instrument Harp --output none.kvsong", "game: ");
        row("no package", "pak list none", "none: Could not find compatible pak reader.");
        row("endless", "pak list /dev/zero", "/dev/zero: Could not find compatible pak reader.");
        row("no such file", "pak extract legacy.pak /none", "legacy.pak: File not found");
        row("unwritable", "pak extract legacy.pak /b\033c --output none", "none: ");
    }
    void failures()
    {
        QFETCH(QString, words);
        QFETCH(QByteArray, error);
        const auto result = run(folder_, words);
        QCOMPARE(result.status, 1);
        QCOMPARE(result.out, QByteArray());
        QVERIFY2(result.error.startsWith("kelvarion-composer-cli: " + error) && result.error.count('\n') == 1,
                 result.error);
    }
};

QTEST_GUILESS_MAIN(TestAssetCommands)
#include "test_asset_commands.moc"
