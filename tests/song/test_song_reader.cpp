#include "song/SongReader.h"
#include "support/MidiBytes.h"
#include "support/TestFolder.h"
#include "support/Thrown.h"

#include <QBuffer>

#ifdef Q_OS_UNIX
#include <sys/stat.h>
#endif

namespace {

// As long as it is asked, and nothing in it.
class EndlessDevice : public QIODevice
{
public:
    EndlessDevice() { open(ReadOnly); }
    bool isSequential() const override { return true; }

protected:
    qint64 readData(char *, qint64 size) override { return size; }
    qint64 writeData(const char *, qint64) override { return -1; }
};

// Kinds of findings by the letters of their names, each with its places.
QString describe(const PartReport &report)
{
    static constexpr const char *names[] = {"soft",    "restruck", "range",  "folded", "open",  "silence",
                                            "overlap", "tempo",    "repeat", "tie",    "unread"};
    static_assert(std::size(names) == importFindingCount);
    QStringList words;
    if (report.channel)
        words.append(QStringLiteral("%1/%2").arg(*report.channel).arg(report.program.value_or(-1)));
    for (int i = 0; i < importFindingCount; ++i) {
        const auto finding = ImportFinding(i);
        if (report.count(finding) == 0)
            continue;
        QStringList places;
        for (const auto place : report.places(finding))
            places.append(QString::number(double(place) / ticksPerQuarter));
        words.append(
            QStringLiteral("%1 %2@%3").arg(report.count(finding)).arg(QLatin1String(names[i]), places.join(u'+')));
    }
    if (report.barLineSilence > 0)
        words.append(QStringLiteral("%1 silent").arg(double(report.barLineSilence) / ticksPerQuarter));
    return words.join(u' ');
}

} // namespace

Q_DECLARE_METATYPE(AbcDialect)

class TestSongReader : public QObject
{
    Q_OBJECT

    const TestFolder folder_;

private slots:
    void tunes_data()
    {
        const Rows<QString, QString> row("text", "tunes"); // with their lines, parted by bars
        row("one", "X:1\nK:C\nC\n", "1 X:1\nK:C\nC\n");
        row("none", "K:C\nC\n\nD", "1 K:C\nC\n\nD");
        row("two", "X:1\nK:C\nC \n\nX:2\nK:C\n\n", "1 X:1\nK:C\nC |5 X:2\nK:C\n\n");
        row("blanks and carriage returns", "X:1\r\nC\r\n \t\r\n\r\nX:2\r\nD\r\n", "1 X:1\r\nC\r|5 X:2\r\nD\r\n");
        row("what stands before the first", "%abc\n\nX:1\nC\n\nX:2", "1 %abc\n\nX:1\nC|6 X:2");
        row("words between", "X:1\nC\n\n% so\nX:2\nD", "1 X:1\nC\n\n% so|5 X:2\nD");
        row("no empty line", "X:1\nX:2\nK:C\nC\nX:3\n", "1 X:1\nX:2\nK:C\nC\nX:3\n");
        row("lower case", "X:1\n\nx:2\n", "1 X:1\n\nx:2\n");
    }
    void tunes()
    {
        QFETCH(QString, text);
        QStringList found;
        for (const auto &tune : tunesOf(text))
            found.append(QStringLiteral("%1 %2").arg(tune.line).arg(tune.text));
        QTEST(found.join(u'|'), "tunes");
    }

    void sources_data()
    {
        using namespace MidiBytes;
        // tracks with the names of their files, then errors
        const Rows<QByteArray, QString> row("bytes", "song"); // named by the file
        const QByteArray tune("X:1\nT:A\nK:C\nC\n");
        const auto midi = file({noteOn(0, 60) + noteOff(96, 60) + endOfTrack(), endOfTrack()});
        row("a.abc", tune, "A a.abc");
        row("header.ABC", "T:B\nK:C\n", "B header.ABC");
        row("book.abc", tune + "\n" + tune, "A,A");
        row("faults.abc", tune + "\n" + tune + ";\n\n" + tune,
            "A,A,Tune 2, which begins in line 6: Unknown token found in ABC body at line 5, column 1.");
        row("many.abc", tune + ("\n" + tune + ";\n").repeated(7),
            "A,Tune 2, which begins in line 6: Unknown token found in ABC body at line 5, column 1.\n"
            "Tune 3, which begins in line 12: Unknown token found in ABC body at line 5, column 1.\n"
            "Tune 4, which begins in line 18: Unknown token found in ABC body at line 5, column 1.\n"
            "Tune 5, which begins in line 24: Unknown token found in ABC body at line 5, column 1.\n"
            "Tune 6, which begins in line 30: Unknown token found in ABC body at line 5, column 1.\n"
            "2 more tunes could not be read.");
        row("a.midi", midi, "Track 1 - Acoustic Grand Piano");
        row("text.abc.txt", tune, "A text.abc.txt");
        row("b.txt", "MML@c,,d", "Part 1,Part 2");
        row("unmarked.txt", "T120 l8 o4c+4.&c4. /* M 2 */ r>d-,\r\nv9n60;", "Part 1,Part 2");
        row("long.txt", "l4" + QByteArray("cdef").repeated(500'000), "Part 1");
        row("letters.txt", "a bad cabbage", "Unknown file type.");
        row("prose.txt", "Meet at l4 or t2", "Unknown file type.");
        row("c.txt", "T:B\n" + tune, "Unknown file type.");
        row("absent.txt", {}, "Could not open file: No such file or directory.");
    }
    void sources()
    {
        const auto name = QString::fromUtf8(QTest::currentDataTag());
        QFETCH(QByteArray, bytes);
        const auto path = bytes.isEmpty() ? folder_.path(name) : folder_.write(name, bytes);
        const auto song = readSource(sourceOf(path), {});
        QStringList found;
        for (const auto &track : song.tracks)
            found.append((track.title() + u' ' + QFileInfo(track.filePath()).fileName()).trimmed());
        for (const auto &error : song.errors)
            found.append(error.text);
        QTEST(found.join(u','), "song");
        QCOMPARE(song.readFiles, song.tracks.isEmpty() ? QStringList() : QStringList(path));

        const auto isTextByEnding = name.endsWith(QStringLiteral(".ABC")); // bytes have no name
        const auto unnamed = readSource({SongSource::Kind::Bytes, {}, bytes}, {});
        QVERIFY(isTextByEnding || bytes.isEmpty() || unnamed.tracks.size() == song.tracks.size());
    }

    void reports_data()
    {
        using namespace MidiBytes;
        // of each part, then what is in none
        const Rows<QByteArray, AbcDialect, QString> row("bytes", "dialect", "report");
        const auto game = AbcDialect::Game;
        const auto abc = [](const char *music) { return QByteArray("X:1\nM:4/4\nL:1/4\nQ:1/4=90\nK:C\n") + music; };
        row("nothing", abc("CDEF|GABc|]"), game, "|");
        row("silences", abc("C|DEFG| |GA|z"), game, "3 silence@1+8+14 9 silent|");
        row("too full a measure", abc("CDEFG|A|]"), game, "1 overlap@4|");
        row("behind the end", abc("CDEF|G|]"), game, "|");
        row("ties to other notes", abc("C-D [CE]-[CE]|[C-E]-[CG] C-C|"), game, "2 tie@1+5|");
        row("ties over what bar lines move", abc("C4|D C-|C2|F4-F|E-|"), game,
            "2 silence@6+10 1 overlap@16 2 tie@6+17 4 silent|");
        row("repeats and ties", abc("|:C2 -C2:|D4::E4:|"), game, "1 silence@0 3 repeat@8+12+16 1 tie@4 4 silent|");
        row("no tempo", "X:1\nM:4/4\nL:1/4\nK:C\nC", game, "1 tempo@0|");
        row("standard", "X:1\nL:1/4\nK:C\nV:1\nC-|D C,,,,,|\nL:x\nV:2\n%%MIDI program 7\nC- C-|]", AbcDialect::Standard,
            "1 range@2 1 tempo@0 1 tie@1 1 unread@|1 tie@2|");
        const auto lost = midiEvent(0, {0xC0, 40}) + noteOn(0, 60) + noteOn(96, 60) + noteOn(0, 62, 3) +
                          noteOff(96, 60) + noteOn(0, 109, 90, 9) + noteOff(96, 109, 9) + noteOn(0, 36, 90, 9) +
                          noteOn(0, 62, 1, 3) + endOfTrack(96);
        row("MIDI", file({lost}), game, "1/40 1 soft@1 1 restruck@0|10/0 1 range@2 1 open@3|1 soft@3");
        row("MML", "MML@t120n200,cn128d&", game, "1 range@1 1 open@1|1 range@0");
    }
    void reports()
    {
        QFETCH(QByteArray, bytes);
        QFETCH(AbcDialect, dialect);
        ReadingOptions options;
        options.abc = dialect;
        options.tracks = ReadingOptions::Tracks::ToBeShown;
        const auto song = readSource({SongSource::Kind::Bytes, {}, bytes}, options);
        QCOMPARE(song.parts.size(), song.tracks.size());
        QStringList parts;
        auto sum = song.elsewhere;
        for (const auto &part : song.parts) {
            parts.append(describe(part));
            sum.add(part);
        }
        parts.append(describe(song.elsewhere));
        QTEST(parts.join(u'|'), "report");
        if (song.report) {
            QCOMPARE(song.report->restruck, sum.count(ImportFinding::Restruck));
            QCOMPARE(song.report->outOfRange, sum.count(ImportFinding::OutOfRange));
            QCOMPARE(song.report->belowVelocityGate, sum.count(ImportFinding::BelowVelocityGate));
            QCOMPARE(song.report->shifts.totalMs, sum.shifts.totalMs);
        }
    }

    void limits()
    {
        EndlessDevice endless;
        QCOMPARE(thrownBy([&] { readBytes(endless); }), QStringLiteral("The file is too large."));
        QBuffer longest;
        longest.setData(QByteArray(largestSource, ' '));
        QVERIFY(longest.open(QIODevice::ReadOnly));
        QCOMPARE(qint64(readBytes(longest).size()), largestSource);
#ifdef Q_OS_UNIX
        const auto pipe = folder_.path("pipe.abc");
        QCOMPARE(mkfifo(qPrintable(pipe), 0600), 0);
        for (const auto &path : {pipe, folder_.path()})
            QCOMPARE(readSource(sourceOf(path), {}).errors.value(0).text, QStringLiteral("Not a regular file."));
#endif
        const QString book = QStringLiteral("X:1\n\n").repeated(10'010);
        const auto song = readSource({SongSource::Kind::AbcText, book}, {});
        QCOMPARE(song.tracks.size(), 10'000);
        const auto mml = QStringLiteral("MML@") + QStringLiteral("c,").repeated(10'001);
        for (const auto &read : {song, readSource({SongSource::Kind::MmlText, mml}, {})})
            QVERIFY(read.errors.value(0).text.contains(QStringLiteral("Too many tracks.")));
    }

    void tracksToBeShown()
    {
        ReadingOptions options;
        options.tracks = ReadingOptions::Tracks::ToBeShown;
        const QVector<SongSource> sources{{SongSource::Kind::MmlText, QStringLiteral("MML@c,,d;")},
                                          {SongSource::Kind::AbcText, QStringLiteral("X:1\nK:C\n")}};
        const auto song = readSong(sources, options, {}, [](int) {});
        QCOMPARE(song.tracks.size(), 3);
        QCOMPARE(song.sources, QVector<int>({0, 0, 1}));
        QVERIFY(std::all_of(song.tracks.begin(), song.tracks.end(), [](const Track &track) { return track.hasAbc(); }));
        std::stop_source stop;
        const auto stopped = readSong(sources, options, stop.get_token(), [&](int number) {
            if (number == 1)
                stop.request_stop();
        });
        QCOMPARE(stopped.tracks.size(), 2);
    }
};

QTEST_APPLESS_MAIN(TestSongReader)
#include "test_song_reader.moc"
