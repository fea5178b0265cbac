#include "Program.h"
#include "support/MidiBytes.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QRegularExpression>

namespace {

// A text with an X field, the given notes and nothing else of interest.
QByteArray tune(const char *title, const QByteArray &notes)
{
    return QByteArray("X:1\nT:") + title + "\nL:1/4\nK:C\n" + notes + "\n";
}

} // namespace

// Runs the program in a folder of its own.
class TestCli : public QObject
{
    Q_OBJECT

    std::unique_ptr<TestFolder> folder_;

    Outcome run(const Text &words, const QByteArray &input = {}) const { return ::run(*folder_, words, input); }

private slots:
    void init()
    {
        folder_ = std::make_unique<TestFolder>();
        folder_->write("a.abc", tune("Air", "C2 D"));
        folder_->write("b.abc", tune("Air", "E4"));
        folder_->write("slash.abc", tune("a/b: ..", "C"));
        folder_->write("letter.txt", "Dear friend");
        folder_->write("bad.abc", "X:1\nK:C\nC ;\n");
        folder_->write("bad.mid", "RIFFxxxx");
        folder_->write("book.abc", tune("Air", "C") + "\nX:1\nK:C\n;\n");
    }

    void wrongUsage_data()
    {
        const Rows<QString> row("words");
        for (const char *words : {"",
                                  "dance a.abc",
                                  "inspect",
                                  "inspect a --game b",
                                  "inspect a --output b",
                                  "convert a.abc",
                                  "convert a.abc --output out --transpose 49",
                                  "convert a.abc --output out --realign 0",
                                  "convert a.abc --output out --unit-length 1/0",
                                  "convert a.abc --output out --set midi/mergeChannels=perhaps",
                                  "convert a.abc --output out --set no/such=1",
                                  "convert a.abc --output out --to wav",
                                  "inspect a.abc --to abc",
                                  "arrange a.abc --output out",
                                  "arrange a.abc --output out --players 25",
                                  "arrange a.abc --output out --players 2 --voices many",
                                  "pak",
                                  "pak list",
                                  "pak list a b",
                                  "pak extract a",
                                  "pak list a --game b",
                                  "instruments",
                                  "instruments --game a b",
                                  "instruments --game a --output b",
                                  "instruments --game a --merge",
                                  "completion csh"})
            row(words, words);
    }
    void wrongUsage()
    {
        QFETCH(QString, words);
        const auto [status, out, error] = run(words);
        QCOMPARE(status, 2);
        QCOMPARE(out, QByteArray());
        QVERIFY2(error.startsWith("kelvarion-composer-cli: ") && error.contains("Usage:"), error);
    }

    void help_data()
    {
        const Rows<QString, QString> row("words", "expression");
        row("what there is", "--help", "COMMAND .*\n  convert .*\n  pak extract ");
        row("a command", "convert -h", "convert INPUT… --output DIR .*-o, --output DIR .*  midi/velocityGate=8 ");
        row("its manual", "manual", "\\A\\.TH .*\\.SS convert\n.*fB\\\\-\\\\-unit\\\\-length");
        row("version", "--version", "\\Akelvarion-composer-cli \\d+\\.\\d+\\.\\d+\n\\z");
    }
    void help()
    {
        QFETCH(QString, words);
        QFETCH(QString, expression);
        const auto [status, out, error] = run(words);
        QCOMPARE(status, 0);
        QCOMPARE(error, QByteArray());
        const QRegularExpression expected(expression, QRegularExpression::DotMatchesEverythingOption);
        QVERIFY2(QString::fromUtf8(out).contains(expected), out);
    }

#ifdef Q_OS_UNIX
    void bashCompletesWords_data()
    {
        const Rows<QString, QByteArray> row("words", "completed");
        row("a command", "i", "inspect instruments");
        row("its second word", "pak ''", "list extract");
        row("an option", "convert a.abc --un", "--unit-length");
        row("its value", "convert --to ''", "abc midi tunebook");
        row("a setting", "inspect -s midi/ex", "midi/exactTempo=");
        row("not what it does not take", "pak list --fo", "");
    }
    void bashCompletesWords()
    {
        QFETCH(const QString, words);
        QFETCH(const QByteArray, completed);
        folder_->write("completion", run("completion bash").out);
        QProcess bash;
        bash.setWorkingDirectory(folder_->path());
        bash.start(
            QStringLiteral("bash"),
            {QStringLiteral("-c"), QStringLiteral("compopt() { :; }; . ./completion; COMP_WORDS=(composer %1); "
                                                  "COMP_CWORD=$((${#COMP_WORDS[@]} - 1)); _kelvarion_composer_cli; "
                                                  "echo -n \"${COMPREPLY[@]}\"")
                                       .arg(words)});
        const auto [status, out, error] = outcomeOf(bash);
        QCOMPARE(error, QByteArray());
        QCOMPARE(out, completed);
    }
#endif

    void failures_data()
    {
        const Rows<QString, QByteArray> row("words", "error");
        row("absent", "inspect absent.abc", "absent.abc: Could not open file: No such file or directory.\n");
        row("no song", "inspect letter.txt", "letter.txt: Unknown file type.\n");
        row("ABC", "inspect bad.abc", "bad.abc: Unknown token found in ABC body at line 3, column 3.\n");
        row("MIDI", "inspect bad.mid", "bad.mid: Invalid MIDI file.\n");
        row("terminal escapes", "inspect a\033[31m\u0085",
            "a\uFFFD[31m\uFFFD: Could not open file: No such file or directory.\n");
        row("one of two tunes", "convert book.abc --output out",
            "book.abc: Tune 2, which begins in line 7: Unknown token found in ABC body at line 3, column 1.\n");
        row("folder is a file", "convert a.abc --output a.abc", "a.abc: ");
    }
    void failures()
    {
        QFETCH(QString, words);
        QFETCH(QByteArray, error);
        const auto result = run(words);
        QCOMPARE(result.status, 1);
        QVERIFY2(result.error.startsWith("kelvarion-composer-cli: " + error), result.error);
    }

    void convertTellsWhyItWroteNothing()
    {
        QCOMPARE(run("convert - --output out", "MML@;").out,
                 QByteArray("-: wrote nothing, since there are no notes in it\n"));
        QCOMPARE(run("convert - --output out", "MML@n200;").out,
                 QByteArray("-: wrote nothing, since all notes were left out; notes: 1 out of range\n"));
    }

    void readsStandardInputByItsText()
    {
        QFile midi(QStringLiteral(COMPOSER_EXAMPLES "/harbour-jig.mid"));
        QVERIFY(midi.open(QIODevice::ReadOnly));
        QVERIFY(run("inspect -", midi.readAll()).out.contains("\"Track 1 - Flute\""));
        QVERIFY(run("inspect -", tune("Air", "C")).out.contains("\"Air\""));
        QVERIFY(run("inspect -", "MML@c;").out.contains("\"noteCount\":1"));
        QCOMPARE(run("inspect -", "x:1").error, QByteArray("kelvarion-composer-cli: -: Unknown file type.\n"));
    }

    void inspectPrintsOneObject()
    {
        const auto [status, out, error] = run("inspect a.abc --transpose 12");
        QCOMPARE(status, 0);
        QCOMPARE(error, QByteArray());
        const auto document = QJsonDocument::fromJson(out).object();
        const auto track = document.value(u"tracks").toArray().first().toObject();
        QCOMPARE(track.value(u"title").toString(), QStringLiteral("Air"));
        QCOMPARE(track.value(u"length").toInt(), 30240);
        QCOMPARE(track.value(u"headerFields").toObject().value(u"L").toArray().first().toString(),
                 QStringLiteral("1/4"));
        const auto events = track.value(u"events").toArray();
        QCOMPARE(events.size(), 2);
        QCOMPARE(QJsonDocument(events.at(1).toObject()),
                 QJsonDocument::fromJson(R"({"kind": "Note", "start": 20160, "length": 10080, "pitch": 74,
                     "velocity": 1, "textLine": 5, "textColumn": 3, "textLength": 1})"));
        QVERIFY(!document.contains(u"report")); // nothing can be left out of ABC
        QCOMPARE(run("inspect a.abc b.abc").out, run("inspect a.abc").out + run("inspect b.abc").out);
    }

    void readsAbcAsTheGameOrTheStandardHasIt_data()
    {
        const Rows<QString, QByteArray, QString> row("words", "notes", "remark");
        row("convert decides", "", "C D C D ", "; read as standard ABC for its repeats, tempo, bar lines\n");
        row("as the game", "--read game", "|:CD:|", "out/Reel.abc\n");
        row("as the standard", "--read standard", "C D C D ",
            "; read as standard ABC for its repeats, tempo, bar lines\n");
    }
    void readsAbcAsTheGameOrTheStandardHasIt()
    {
        QFETCH(QString, words);
        QFETCH(QByteArray, notes);
        QFETCH(QString, remark);
        folder_->write("reel.abc", "X:1\nT:Reel\nM:2/4\nL:1/8\nK:C\n|:CD:|\n");
        const auto result = run(QStringLiteral("convert reel.abc --force --output out ") + words);
        QVERIFY2(QString::fromUtf8(result.out).endsWith(remark), result.out);
        QVERIFY2(folder_->read("out/Reel.abc").contains(notes), folder_->read("out/Reel.abc"));
        QVERIFY(!run("inspect reel.abc").out.contains("start\":10080")); // nothing is repeated
        QCOMPARE(run("convert reel.abc --output out --read so").status, 2);
    }

    void convertWritesOtherKinds_data()
    {
        const Rows<QString, QByteArray, QString, QByteArray> row("words", "said", "file", "content");
        const QByteArray airs = "X: 1\nT:Air\nL:1/4\nK:C\nC2 D\n";
        const QByteArray midi("MThd\0\0\0\6\0\1\0\2\1\340MTrk", 18);
        row("a tunebook", "pair.kvsong --to tunebook", "pair.kvsong: wrote out/Pair.abc\n", "out/Pair.abc",
            airs + "\nX: 2\nT:Air\nL:1/4\nK:C\nE4\n");
        row("of each", "a.abc b.abc --to tunebook", "a.abc: wrote out/a.abc\nb.abc: wrote out/b.abc\n", "out/a.abc",
            airs);
        row("MIDI", "a.abc --to midi", "a.abc: wrote out/a.mid\n", "out/a.mid", midi);
        row("of all", "a.abc b.abc --merge --to midi", "a.abc: merged into out/a.mid\nb.abc: merged into out/a.mid\n",
            "out/a.mid", midi);
        row("cut notes", "- --to midi", "-: wrote out/Air.mid; 1 notes end where their pitch begins again\n",
            "out/Air.mid", midi);
    }
    void convertWritesOtherKinds()
    {
        QFETCH(const QString, words);
        QFETCH(const QByteArray, said);
        QFETCH(const QString, file);
        QFETCH(const QByteArray, content);
        QCOMPARE(run("song a.abc b.abc --title Pair --output pair.kvsong").status, 0);
        const auto [status, out, error] = run("convert --read game --output out " + words, tune("Air", "[zC2]C"));
        QCOMPARE(error, QByteArray());
        QCOMPARE(out, said);
        QVERIFY2(folder_->read(file).startsWith(content), folder_->read(file));
    }

    void arrangeWritesAFileForEachPlayer()
    {
        folder_->write("chords.abc", tune("Air", "[CEGc] [DFAd]"));
        const auto [status, out, error] = run("arrange chords.abc no.abc --players 2 --voices 2 --output out");
        QCOMPARE(status, 1);
        QCOMPARE(error,
                 QByteArray("kelvarion-composer-cli: no.abc: Could not open file: No such file or directory.\n"));
        QVERIFY2(out.startsWith("chords.abc: wrote out/chords - Air (1).abc, out/chords - Air (2).abc\n"), out);
        QVERIFY(folder_->read("out/chords - Air (1).abc").endsWith("K: C\n[Gc] [Ad] \n"));
        QVERIFY(folder_->read("out/chords - Air (2).abc").endsWith("K: C\n[CE] [DF] \n"));
        const auto again = run("arrange chords.abc --players 1 --voices 2 --output out --json --force");
        const auto before = QJsonDocument::fromJson(again.out)[QStringLiteral("songs")][0][QStringLiteral("before")][0];
        QCOMPARE(before[QStringLiteral("notes")].toInt(), 8);
        QCOMPARE(before[QStringLiteral("noVoice")].toInt(), 4);
    }

    void arrangeTakesFolders()
    {
        for (const auto *const name : {"pack/b/jig.abc", "pack/a/jig.kar", "pack/c.abc"})
            folder_->write(name, QByteArray(name).endsWith("kar") ? "RIFF" : tune("Air", "[CE] | D3").constData());
        const auto [status, out, error] = run("arrange pack --players 1 --voices 1 --output out --summary --manifest");
        QCOMPARE(status, 1);
        QVERIFY2(error.startsWith("kelvarion-composer-cli: pack/a/jig.kar: "), error);
        const auto lines = out.split('\n');
        QVERIFY2(lines[0].startsWith("pack/b/jig.abc: wrote out/jig - Air.abc"), out);
        QCOMPARE(lines[lines.size() - 3], QByteArray("pack/c.abc          1    0:02       0         0      0"));
        QCOMPARE(lines[lines.size() - 2], QByteArray("3 songs             2    0:04       1         0      0"));
        const auto manifest = folder_->read("out/manifest.json");
        const auto songs = QJsonDocument::fromJson(manifest)[QStringLiteral("songs")];
        QCOMPARE(songs[2][QStringLiteral("files")][0].toString(), QStringLiteral("out/c - Air.abc"));
        QCOMPARE(songs[2][QStringLiteral("before")][0][QStringLiteral("noVoice")].toInt(), 1);
        QCOMPARE(run("arrange pack --players 1 --voices 1 --output out --json --force").out, manifest);
    }

    void convertNeverWritesTwoTracksToOneFile()
    {
        const auto result = run("convert a.abc b.abc slash.abc --names title --output out");
        QCOMPARE(result.status, 0);
        QCOMPARE(folder_->files("out").join(u'|'), QStringLiteral("a_b_ ...abc|Air (2).abc|Air.abc"));
        QVERIFY(folder_->read("out/Air (2).abc").contains("E4"));
        QCOMPARE(result.out.count('\n'), 3);

        const auto ofEarlierCalls = folder_->read("out/Air.abc");
        QVERIFY(run("convert b.abc --names title --output out").out.contains("Air (3).abc"));
        QCOMPARE(folder_->read("out/Air.abc"), ofEarlierCalls);
        QVERIFY(run("convert b.abc --names title --output out --force").out.contains("Air.abc"));
        QCOMPARE(folder_->read("out/Air.abc"), folder_->read("out/Air (3).abc"));
    }

    void convertTakesFolders()
    {
        folder_->write("pack/b.abc", tune("Bee", "C4"));
        folder_->write("pack/a/deep.mml", "MML@l4cdef,g;");
        folder_->write("pack/letter.txt", "Dear friend");
        const auto table = run("convert pack --output out --summary --manifest").out.split('\n');
        QCOMPARE(table.size(), 7);
        QVERIFY(table[0].startsWith("pack/a/deep.mml: wrote out/deep - Part 1.abc, out/deep - Part 2.abc"));
        QCOMPARE(table[2], QByteArray("INPUT            PARTS  LENGTH  ERRORS  WARNINGS  NOTES"));
        QCOMPARE(table[3], QByteArray("pack/a/deep.mml      2    0:02       0         0      1"));
        QCOMPARE(table[5], QByteArray("2 songs              3    0:04       0         0      1"));

        const auto manifest = folder_->read("out/manifest.json");
        const auto songs = QJsonDocument::fromJson(manifest).object().value(u"songs").toArray();
        const auto part = songs[0].toObject().value(u"parts").toArray()[1].toObject();
        QCOMPARE(part.value(u"file").toString(), QStringLiteral("out/deep - Part 2.abc"));
        QCOMPARE(part.value(u"noteCount").toInt(), 1);
        QCOMPARE(run("convert pack/b.abc --output out --manifest").error,
                 QByteArray("kelvarion-composer-cli: out: manifest.json exists; --force writes over it.\n"));
        QCOMPARE(run("convert pack --output out2 --json").out, QByteArray(manifest).replace("out/", "out2/"));
    }

    void songsAreInputsAndOutput()
    {
        QVERIFY(QFile::copy(QStringLiteral(COMPOSER_EXAMPLES "/harbour-jig.mid"), folder_->path("jig.mid")));
        QCOMPARE(run("song a.abc jig.mid --output one.kvsong --title Evening").status, 0);
        const auto one = QJsonDocument::fromJson(folder_->read("one.kvsong")).object();
        QCOMPARE(one.value(u"title").toString(), QStringLiteral("Evening"));
        const auto parts = one.value(u"parts").toArray();
        QCOMPARE(parts.first().toObject().value(u"file").toString(), QStringLiteral("a.abc"));
        QCOMPARE(one.value(u"imports").toArray().first().toObject().value(u"file").toString(),
                 QStringLiteral("jig.mid"));
        QCOMPARE(run("inspect -", folder_->read("one.kvsong")).out, run("inspect one.kvsong").out);
        QVERIFY(run("convert one.kvsong --output out").status == 0);
        QCOMPARE(folder_->files("out").size(), parts.size());
        QCOMPARE(folder_->read("out/Evening - Air.abc"), folder_->read("a.abc"));

        QCOMPARE(run("song b.abc --output one.kvsong").error,
                 QByteArray("kelvarion-composer-cli: one.kvsong: The file exists; --force writes over it.\n"));
        QCOMPARE(run("song one.kvsong b.abc one.kvsong --output two.kvsong").status, 0);
        const auto two = QJsonDocument::fromJson(folder_->read("two.kvsong")).object();
        QCOMPARE(two.value(u"title").toString(), QStringLiteral("Evening"));
        QCOMPARE(two.value(u"parts").toArray().size(), 2 * parts.size() + 1);
        QCOMPARE(parts.last().toObject().value(u"import").toString(), QStringLiteral("I1"));
        QCOMPARE(two.value(u"parts").toArray().last().toObject().value(u"import").toString(), QStringLiteral("I2"));
        QCOMPARE(run("song a.abc b.abc --output two.kvsong --force --merge").status, 0);
        QCOMPARE(QJsonDocument::fromJson(folder_->read("two.kvsong")).object().value(u"parts").toArray().size(), 1);
    }

    // The other parts can still be had.
    void aPartThatCannotBeRead()
    {
        folder_->write("bad.kvsong", R"({"format": "kelvarion-song", "version": 1, "parts": [
            {"id": "T1", "name": "Lute", "abc": ["X:1", "K:C", "C ;"]}, {"id": "T2", "abc": ["X:1", "T:Air", "K:C"]}]})");
        const auto result = run("convert bad.kvsong --output out");
        QCOMPARE(result.status, 1);
        QVERIFY(result.error.startsWith("kelvarion-composer-cli: bad.kvsong: Part \"Lute\": "));
        QCOMPARE(folder_->files("out").join(u'|'), QStringLiteral("bad - Air.abc|bad - Lute.abc"));
    }

#ifdef Q_OS_UNIX
    void saysWhatWantsMemory()
    {
#ifdef SANITIZED_PROGRAM
        QSKIP("the sanitizers reserve terabytes");
#endif
        folder_->write("long.abc", tune("Long", QByteArray("C ").repeated(10'000'000)));
        for (const auto *const words :
             {"inspect long.abc", "convert long.abc --output out", "render long.abc --game . --output long.wav"}) {
            QProcess program;
            program.setWorkingDirectory(folder_->path());
            const auto line = QStringLiteral("ulimit -v 400000; exec " COMPOSER_CLI " ") + QLatin1String(words);
            program.start(QStringLiteral("sh"), {QStringLiteral("-c"), line});
            const auto [status, out, error] = outcomeOf(program);
            QCOMPARE(status, 1);
            QCOMPARE(error, QByteArray("kelvarion-composer-cli: long.abc: Not enough memory to read long.abc.\n"));
        }
    }
#endif

    void aFailingInputDoesNotStopTheOthers()
    {
        const auto result = run("convert bad.abc absent.mid a.abc --output out");
        QCOMPARE(result.status, 1);
        QCOMPARE(folder_->files("out").join(u'|'), QStringLiteral("a - Air.abc"));
        QCOMPARE(result.error.count('\n'), 2);
    }

    void transformsApplyInTheOrderGiven()
    {
        const std::pair<const char *, const char *> cases[] = {{"--key D --unit-length 1/8", "=C4 D2"},
                                                               {"--transpose 12 --transpose -12", "C2 D "},
                                                               {"--realign 1 --transpose 2", "[D4E4]"}};
        for (const auto &[words, notes] : cases) {
            QCOMPARE(run(QStringLiteral("convert --force --output out a.abc ") + QLatin1String(words)).status, 0);
            QVERIFY2(folder_->read("out/a - Air.abc").contains(notes), words);
        }
    }

    void convertSaysWhatWasLeftOut()
    {
        using namespace MidiBytes;
        folder_->write("soft.mid", file({noteOn(0, 60) + noteOff(96, 60) + noteOn(0, 62, 1) + noteOff(96, 62) +
                                         noteOn(0, 127) + noteOff(96, 127) + endOfTrack()}));
        QCOMPARE(run("convert soft.mid --output out").out,
                 QByteArray("soft.mid: wrote out/soft - Track 1 - Acoustic Grand Piano.abc; "
                            "notes: 1 too soft, 1 out of range\n"));
    }
};

QTEST_GUILESS_MAIN(TestCli)
#include "test_cli.moc"
