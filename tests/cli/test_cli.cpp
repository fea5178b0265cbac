#include "support/MidiBytes.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QtTest>

namespace {

struct Result
{
    int status = -1;
    QString out;
    QString error;
};

// A text with an X field, the given notes and nothing else of interest.
QByteArray tune(const char *title, const char *notes)
{
    return QByteArray("X:1\nT:") + title + "\nL:1/4\nK:C\n" + notes + "\n";
}

} // namespace

// Runs the program as its users do, in a folder of its own.
class TestCli : public QObject
{
    Q_OBJECT

private:
    Result run(const QStringList &arguments, const QByteArray &input = {}) const
    {
        QProcess process;
        process.setWorkingDirectory(folder_->path());
        process.start(QStringLiteral(COMPOSER_CLI), arguments);
        process.write(input);
        process.closeWriteChannel();
        if (!process.waitForFinished())
            return {};
        return {process.exitCode(), QString::fromUtf8(process.readAllStandardOutput()),
                QString::fromUtf8(process.readAllStandardError())};
    }

    Result runWords(const QString &words, const QByteArray &input = {}) const
    {
        return run(words.split(u' ', Qt::SkipEmptyParts), input);
    }

    void write(const QString &name, const QByteArray &bytes) const
    {
        QFile file(folder_->filePath(name));
        QVERIFY(file.open(QIODevice::WriteOnly));
        QCOMPARE(file.write(bytes), qint64(bytes.size()));
    }

    QString read(const QString &name) const
    {
        QFile file(folder_->filePath(name));
        return file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()) : QStringLiteral("(absent)");
    }

    QStringList files(const QString &folder) const { return QDir(folder_->filePath(folder)).entryList(QDir::Files); }

    std::unique_ptr<QTemporaryDir> folder_;

private slots:
    void init()
    {
        folder_ = std::make_unique<QTemporaryDir>();
        write(QStringLiteral("a.abc"), tune("Air", "C2 D"));
        write(QStringLiteral("b.abc"), tune("Air", "E4"));
        write(QStringLiteral("slash.abc"), tune("a/b: ..", "C"));
        write(QStringLiteral("song.txt"), "MML@t150l8cde;");
        write(QStringLiteral("letter.txt"), "Dear friend");
        write(QStringLiteral("bad.abc"), "X:1\nK:C\nC ;\n");
        write(QStringLiteral("bad.mid"), "RIFFxxxx");
    }

    void exitStatus_data()
    {
        QTest::addColumn<QString>("words");
        QTest::addColumn<int>("status");
        QTest::addColumn<QString>("error"); // that it begins with
        const auto add = [](const char *words, int status, const char *error) {
            QTest::newRow(words) << QString::fromLatin1(words) << status << QString::fromLatin1(error);
        };
        add("", 2, "kelvarion-composer-cli: ");
        add("dance a.abc", 2, "kelvarion-composer-cli: ");
        add("inspect", 2, "kelvarion-composer-cli: ");
        add("inspect a.abc b.abc", 2, "kelvarion-composer-cli: ");
        add("convert a.abc", 2, "kelvarion-composer-cli: ");
        add("convert a.abc --output out --transpose 49", 2, "kelvarion-composer-cli: ");
        add("convert a.abc --output out --realign 0", 2, "kelvarion-composer-cli: ");
        add("convert a.abc --output out --unit-length 1/0", 2, "kelvarion-composer-cli: ");
        add("convert a.abc --output out --set midi/mergeChannels=perhaps", 2, "kelvarion-composer-cli: ");
        add("convert a.abc --output out --set no/such=1", 2, "kelvarion-composer-cli: ");
        add("inspect a.abc", 0, "");
        add("inspect absent.abc", 1, "kelvarion-composer-cli: absent.abc: Could not open file.\n");
        add("inspect letter.txt", 1, "kelvarion-composer-cli: letter.txt: Unknown file type.\n");
        add("inspect bad.abc", 1,
            "kelvarion-composer-cli: bad.abc: Unknown token found in ABC body at line 3, column 3.\n");
        add("inspect bad.mid", 1, "kelvarion-composer-cli: bad.mid: Invalid MIDI file.\n");
        add("convert a.abc --output a.abc", 1, "kelvarion-composer-cli: a.abc: ");
    }
    void exitStatus()
    {
        QFETCH(QString, words);
        QFETCH(QString, error);
        const auto result = runWords(words);
        QTEST(result.status, "status");
        QVERIFY2(error.isEmpty() ? result.error.isEmpty() : result.error.startsWith(error), qPrintable(result.error));
    }

    void readsStandardInputByItsText()
    {
        QFile midi(QStringLiteral(COMPOSER_EXAMPLES "/harbour-jig.mid"));
        QVERIFY(midi.open(QIODevice::ReadOnly));
        const auto inspect = QStringLiteral("inspect -");
        QVERIFY(runWords(inspect, midi.readAll()).out.contains(QStringLiteral("\"Track 1 - Flute\"")));
        QVERIFY(runWords(inspect, tune("Air", "C")).out.contains(QStringLiteral("\"Air\"")));
        QVERIFY(runWords(inspect, "MML@c;").out.contains(QStringLiteral("\"noteCount\":1")));
        QCOMPARE(runWords(inspect, "x:1").error, QStringLiteral("kelvarion-composer-cli: -: Unknown file type.\n"));
    }

    void inspectPrintsOneObject()
    {
        const auto result = runWords(QStringLiteral("inspect a.abc --transpose 12"));
        const auto document = QJsonDocument::fromJson(result.out.toUtf8());
        const auto track = document.object().value(u"tracks").toArray().first().toObject();
        QCOMPARE(track.value(u"title").toString(), QStringLiteral("Air"));
        QCOMPARE(track.value(u"length").toInt(), 30240);
        QCOMPARE(track.value(u"headerFields").toObject().value(u"L").toArray().first().toString(),
                 QStringLiteral("1/4"));
        const auto events = track.value(u"events").toArray();
        QCOMPARE(events.size(), 2);
        QCOMPARE(events.at(1).toObject(), (QJsonObject{{QStringLiteral("kind"), QStringLiteral("Note")},
                                                       {QStringLiteral("start"), 20160},
                                                       {QStringLiteral("length"), 10080},
                                                       {QStringLiteral("pitch"), 74},
                                                       {QStringLiteral("velocity"), 1},
                                                       {QStringLiteral("textLine"), 5},
                                                       {QStringLiteral("textColumn"), 3},
                                                       {QStringLiteral("textLength"), 1}}));
        QVERIFY(!document.object().contains(u"report")); // nothing can be left out of ABC
    }

    void convertNeverWritesTwoTracksToOneFile()
    {
        const auto result = runWords(QStringLiteral("convert a.abc b.abc slash.abc --output out"));
        QCOMPARE(result.status, 0);
        QCOMPARE(files(QStringLiteral("out")), QStringList({QStringLiteral("a_b_ ...abc"),
                                                            QStringLiteral("Air (2).abc"), QStringLiteral("Air.abc")}));
        QVERIFY(read(QStringLiteral("out/Air (2).abc")).contains(QStringLiteral("E4")));
        QCOMPARE(result.out.count(u'\n'), 3);
    }

    void aFailingInputDoesNotStopTheOthers()
    {
        const auto result = runWords(QStringLiteral("convert bad.abc absent.mid a.abc --output out"));
        QCOMPARE(result.status, 1);
        QCOMPARE(files(QStringLiteral("out")), QStringList(QStringLiteral("Air.abc")));
        QCOMPARE(result.error.count(u'\n'), 2);
    }

    void transformsApplyInTheOrderGiven_data()
    {
        QTest::addColumn<QString>("words");
        QTest::addColumn<QString>("notes");
        QTest::newRow("key, then unit length")
            << QStringLiteral("a.abc --key D --unit-length 1/8") << QStringLiteral("=C4 D2");
        QTest::newRow("up and down again")
            << QStringLiteral("a.abc --transpose 12 --transpose -12") << QStringLiteral("C2 D ");
        QTest::newRow("realign, then transpose")
            << QStringLiteral("a.abc --realign 1 --transpose 2") << QStringLiteral("[D4E4]");
    }
    void transformsApplyInTheOrderGiven()
    {
        QFETCH(QString, words);
        QFETCH(QString, notes);
        const auto result = runWords(QStringLiteral("convert --output out ") + words);
        QCOMPARE(result.status, 0);
        const auto abc = read(QStringLiteral("out/Air.abc"));
        QVERIFY2(abc.contains(notes), qPrintable(abc));
    }

    void convertSaysWhatWasLeftOut()
    {
        using namespace MidiBytes;
        write(QStringLiteral("soft.mid"), file({noteOn(0, 60) + noteOff(96, 60) + noteOn(0, 62, 1) + noteOff(96, 62) +
                                                noteOn(0, 127) + noteOff(96, 127) + endOfTrack()}));
        QCOMPARE(runWords(QStringLiteral("convert soft.mid --output out")).out,
                 QStringLiteral(
                     "soft.mid: wrote out/Track 1 - Acoustic Grand Piano.abc; notes: 1 too soft, 1 out of range\n"));
    }
};

QTEST_GUILESS_MAIN(TestCli)
#include "test_cli.moc"
