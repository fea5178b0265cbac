#include "Program.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

// kelvarion-composer-cli check, with a game that has one instrument with one note.
class TestCheckCommand : public QObject
{
    Q_OBJECT

    const TestFolder folder_;

    Outcome check(const QString &words) const { return run(folder_, QStringLiteral("check --game game ") + words); }

private slots:
    void initTestCase()
    {
        folder_.write("game/assets/items/instruments/lute.instrument",
                      R"({"shortdescription": "lute", "kind": "lute"})");
        folder_.write("game/assets/sfx/instruments/lute/tuning.config",
                      R"({"fadeout": 0, "mapping": {"60": {"file": "c.wav", "f": 261.6}}})");
        folder_.write("game/linux64/kelvarion", "x");
        const QByteArray head = "X:1\nT:Air\nI:Instrument:lute\nM:4/4\nL:1/4\nK:C\n";
        folder_.write("right.abc", head + "C4|C4|]\n");
        folder_.write("wrong.abc", head + "C4||D4|D2;\n");
        folder_.write("song.abc", head + "C4\n\n" + head + "C2\n\nX:3\nT:Bass\nI:Instrument:bass\nQ:90\nK:C\nC\n");
        folder_.write("letter.txt", "Dear friend");
    }

    void tellsWhatIsWrong_data()
    {
        const Rows<QString, int, QByteArray, QByteArray> row("words", "status", "out", "error");
        row("nothing", "right.abc", 0, "right.abc: nothing is wrong in 1 part\n", "");
        row("much", "right.abc wrong.abc", 1,
            "right.abc: nothing is wrong in 1 part\n"
            "wrong.abc: Air, measure 4: error: “;” means nothing here. [refused-text]\n"
            "wrong.abc: Air, measure 2: warning: The bar line “|” makes an empty measure: the game is silent for it. "
            "[empty-measure]\n"
            "wrong.abc: Air, measures 3, 4: error: lute has no sample for D4: the note stays silent. (and 1 more) "
            "[no-sample]\n"
            "wrong.abc: 3 errors, 1 warning in 1 part\n",
            "");
        row("together", "song.abc", 1,
            "song.abc: Air, measure 1: note: The part ends 1/2 note before the longest one. [length-differs]\n"
            "song.abc: Bass: error: The game has no instrument “bass”. [unknown-instrument]\n"
            "song.abc: Bass, measure 1: error: The part plays 90 quarter notes a minute here, most others 120. "
            "[tempo-differs]\n"
            "song.abc: Bass, measure 1: note: The part ends 3/4 note before the longest one. [length-differs]\n"
            "song.abc: 2 errors, 2 notes in 3 parts\n",
            "");
        row("limits", "right.abc --set check/mostCharacters=10", 1,
            "right.abc: Air: warning: The text has 52 characters; the limit is 10. "
            "[long-text]\n"
            "right.abc: 1 warning in 1 part\n",
            "");
        row("no music", "letter.txt right.abc", 1, "right.abc: nothing is wrong in 1 part\n",
            "kelvarion-composer-cli: letter.txt: Unknown file type.\n");
    }
    void tellsWhatIsWrong()
    {
        QFETCH(QString, words);
        const auto [status, out, error] = check(words);
        QTEST(out, "out");
        QTEST(error, "error");
        QTEST(status, "status");
    }

    void printsJson()
    {
        const auto songs = QJsonDocument::fromJson(check(QStringLiteral("wrong.abc letter.txt --json")).out)
                               .object()[QStringLiteral("songs")]
                               .toArray();
        QCOMPARE(songs.size(), 2);
        QCOMPARE(songs[0].toObject()[QStringLiteral("errors")].toInt(), 3);
        const auto part = songs[0].toObject()[QStringLiteral("parts")].toArray().first().toObject();
        const auto finding = part[QStringLiteral("findings")].toArray().first().toObject();
        QCOMPARE(finding.value(QStringLiteral("kind")).toString(), QStringLiteral("empty-measure"));
        QCOMPARE(finding.value(QStringLiteral("line")).toInt(), 7);
        QCOMPARE(finding.value(QStringLiteral("column")).toInt(), 4);
        QVERIFY(finding.value(QStringLiteral("fixable")).toBool());
        QCOMPARE(songs[1].toObject()[QStringLiteral("failures")].toArray().size(), 1);
    }
};

QTEST_GUILESS_MAIN(TestCheckCommand)
#include "test_check_command.moc"
