#include "arrange/Arrangement.h"
#include "arrange/Assignment.h"
#include "arrange/OneTempo.h"
#include "base/Interrupted.h"
#include "import/WrittenTempo.h"
#include "support/ArrangePromises.h"
#include "support/DescribeTrack.h"
#include "support/Rows.h"
#include "support/Thrown.h"

#include <numeric>
#include <random>

namespace {

// "60@0+2 67@2+2": pitch, start and length in quarter notes.
Track trackOf(const QString &notes)
{
    Track track;
    for (const auto &note : notes.split(u' ', Qt::SkipEmptyParts)) {
        const auto at = note.indexOf(u'@');
        const auto plus = note.indexOf(u'+');
        track.appendEvent(TrackEvent::note(note.left(at).toUInt(),
                                           Ticks(note.mid(at + 1, plus - at - 1).toDouble() * ticksPerQuarter),
                                           Ticks(note.mid(plus + 1).toDouble() * ticksPerQuarter)));
    }
    track.normalize();
    return track;
}

QString notesOf(const Track &track)
{
    QStringList notes;
    for (const auto &event : track.events()) {
        if (event.isNote())
            notes.append(QStringLiteral("%1@%2+%3")
                             .arg(event.pitch())
                             .arg(double(event.start()) / ticksPerQuarter)
                             .arg(double(event.length()) / ticksPerQuarter));
    }
    return notes.join(u' ');
}

// "Lute 48-72: 60@0+1; Drum: 40@0+1"
QVector<SourcePart> partsOf(const QString &text)
{
    QVector<SourcePart> parts;
    for (const auto &part : text.split(QStringLiteral("; "))) {
        const auto colon = part.indexOf(u':');
        const auto words = part.left(colon).split(u' ');
        SourcePart source{trackOf(part.mid(colon + 1)), QString(words[0]).replace(u'_', u' '), words[0]};
        if (words.size() > 1)
            source.range = {words[1].section(u'-', 0, 0).toUInt(), words[1].section(u'-', 1).toUInt()};
        source.isPercussion = words[0] == u"Drum";
        parts.append(source);
    }
    return parts;
}

QString describe(const Arrangement &arrangement)
{
    QStringList parts;
    for (const auto &part : arrangement.parts)
        parts.append(part.name + QStringLiteral(": ") + notesOf(part.track));
    const auto sum = arrangement.sumBefore();
    auto text = parts.join(QStringLiteral("; "));
    const std::pair<const char *, int> counts[] = {{"doubled", sum.count(DropReason::Doubled)},
                                                   {"no voice", sum.count(DropReason::NoVoice)},
                                                   {"out of range", sum.count(DropReason::OutOfRange)},
                                                   {"no drummer", sum.count(DropReason::NoDrummer)},
                                                   {"no length", sum.count(DropReason::NoLength)},
                                                   {"folded", sum.folded},
                                                   {"shortened", sum.shortened},
                                                   {"lent", sum.lent}};
    for (const auto &[name, count] : counts)
        text += count > 0 ? QStringLiteral(" | %1 %2").arg(QLatin1String(name)).arg(count) : QString();
    return text;
}

} // namespace

class TestArrangement : public QObject
{
    Q_OBJECT

private slots:
    void notesFindTheirPlayers_data()
    {
        const Rows<QString, int, int, QString> row("parts", "players", "voices", "expected");
        row("as it is", "Lute: 60@0+1 64@0+1; Bass: 40@0+1", 3, 2, "Lute: 60@0+1 64@0+1; Bass: 40@0+1");
        row("a chord becomes voices that move little",
            "Lute: 60@0+1 64@0+1 67@0+1 59@1+1 65@1+1 67@1+1 60@2+1 64@2+1 72@2+1", 3, 1,
            "Lute (1): 67@0+1 67@1+1 72@2+1; Lute (2): 64@0+1 65@1+1 64@2+1; Lute (3): 60@0+1 59@1+1 60@2+1");
        row("a voice goes on from where it was",
            "Flute: 98@0+3; Lute: 60@0+1 69@0+1 70@1+1 79@1+1 72@2+1; Bass: 37@0+3", 4, 1,
            "Flute: 98@0+3; Lute (1): 60@0+1 79@1+1; Lute (2): 69@0+1 70@1+1 72@2+1; Bass: 37@0+3");
        row("parts that fit are one", "Lute: 72@0+1 72@3+1; Bass: 40@0+4; Flute: 76@1+1", 2, 1,
            "Lute + Flute: 72@0+1 76@1+1 72@3+1; Bass: 40@0+4");
        row("a part joins one whose range it fits",
            "Lute 36-48: 40@0+1 41@2+1; Lute 60-72: 67@0+1 69@2+1; Lute 60-72: 64@4+1", 2, 1,
            "Lute: 40@0+1 41@2+1; Lute + Lute: 67@0+1 69@2+1 64@4+1");
        row("the bass stays though it is doubled", "Lute: 60@0+1 64@0+1 67@0+1 72@0+1", 1, 3,
            "Lute: 60@0+1 67@0+1 72@0+1 | no voice 1");
        row("doubled octaves go first", "Lute: 55@0+1 60@0+1 64@0+1 67@0+1 72@0+1", 1, 3,
            "Lute: 55@0+1 64@0+1 72@0+1 | doubled 2");
        row("octaves are folded into the range", "Lute 48-72: 76@0+1 60@1+1 36@2+1", 1, 1,
            "Lute: 64@0+1 60@1+1 48@2+1 | folded 2");
        row("a pitch class that nobody has", "Lute 48-52: 60@0+1 50@1+1", 1, 1, "Lute: 48@0+1 50@1+1 | folded 1");
        row("legato is cut for the melody", "Lute: 60@0+2 62@1+1", 1, 1, "Lute: 60@0+1 62@1+1 | shortened 1");
        row("drums are for three", "Lute: 72@0+1; Bass: 40@0+1; Drum: 36@0+1", 2, 2,
            "Lute: 72@0+1; Bass: 40@0+1 | no drummer 1");
        row("drums are not folded", "Lute: 72@0+1; Bass: 40@0+1; Drum 40-60: 36@0+1 48@1+1", 3, 2,
            "Lute: 72@0+1; Bass: 40@0+1; Drum: 48@1+1 | out of range 1");
        row("a free hand helps", "Lute: 72@0+1 69@0+1 65@0+1; Bass: 40@2+1", 2, 2,
            "Lute: 65@0+1 72@0+1; Bass: 69@0+1 40@2+1 | lent 1");
        row("parts that are one already have lost what they lose",
            "Lute: 56@3+3; Harp: 56@4+3; Harp: 57@2+3; Bass: 45@3+2", 2, 1,
            "Harp + Harp + Lute: 57@2+3; Bass: 45@3+2 | no voice 2");
        row("nothing that sounds", "Lute: 60@0+0", 2, 2, " | no length 1");
    }
    void notesFindTheirPlayers()
    {
        QFETCH(QString, parts);
        QFETCH(int, players);
        QFETCH(int, voices);
        QFETCH(QString, expected);
        QCOMPARE(describe(arrange(partsOf(parts), {players, voices})), expected);
    }

    void findsMelodyAndBass_data()
    {
        const Rows<QString, int, int> row("parts", "melody", "bass");
        row("by its name", "Lead: 36@0+1; Flute: 76@0+1", 0, 1);
        row("a program's sound is no name", "Track_1_-_Lead_2_(sawtooth): 36@0+1; Flute: 76@0+1", 1, 0);
        row("but it counts", "Flute: 76@0+1; Lead_2_(sawtooth): 70@0+1", 1, 0);
        row("chords are none", "Lute: 60@0+1 64@0+1 67@0+1; Flute: 59@0+1; Drum: 90@0+1", 1, 0);
        row("what is seldom heard", "Lute: 50@0+20; Horn: 40@0+1; Flute: 76@0+20; Bell: 90@0+1", 2, 0);
        row("a bass that is not the lowest", "Lute: 48@0+1; Cello: 55@0+1; Flute: 76@0+1", 2, 1);
    }
    void findsMelodyAndBass()
    {
        QFETCH(QString, parts);
        const auto arrangement = arrange(partsOf(parts), {2, 2});
        QTEST(*arrangement.melody, "melody");
        QTEST(*arrangement.bass, "bass");
    }

    void figures_data()
    {
        const Rows<QString, QString> row("parts", "expected"); // range, most at once, crossings
        row("above what sounds", "Flute: 72@0+1 76@1+1; Lute: 60@0+1 79@1+1 60@1+1", "72-76 1 0, 60-79 2 1");
        row("as high", "Flute: 72@0+1 76@1+1; Lute: 60@0+1 76@1+1", "72-76 1 0, 60-76 1 0");
        row("nothing sounds", "Flute: 72@0+1 76@2+1; Lute: 60@0+1 79@1+1", "72-76 1 0, 60-79 1 0");
        row("it still sounds", "Flute: 72@0+3 60@1+1 78@3+1; Lute: 65@1+1", "60-78 2 0, 65-65 1 0");
        row("by the average", "Lute: 60@0+1 66@1+1; Flute: 59@0+1 80@1+1; Bass: 40@0+1 67@1+1",
            "60-66 1 1, 59-80 1 0, 40-67 1 1");
        row("drums", "Flute: 72@0+1; Drum: 90@0+1 36@1+2 37@2+1; Lute: 60@0+1", "72-72 1 0, 36-90 2 0, 60-60 1 0");
    }
    void figures()
    {
        QFETCH(QString, parts);
        const auto arrangement = arrange(partsOf(parts), {3, 3});
        QStringList figures;
        for (const auto &part : arrangement.before)
            figures.append(QStringLiteral("%1-%2 %3 %4")
                               .arg(part.span->lowest)
                               .arg(part.span->highest)
                               .arg(part.mostAtOnce)
                               .arg(part.crossings));
        QTEST(figures.join(QStringLiteral(", ")), "expected");
        QCOMPARE(arrangement.sumBefore().crossings, arrangement.sumAfter().crossings);
    }

    void promisesAreKept()
    {
        for (unsigned seed = 0; seed < 60; ++seed) {
            const auto made = ArrangePromises::randomCase(seed);
            const auto arrangement = arrange(made.parts, made.options);
            const auto wrong =
                ArrangePromises::broken(arrangement, made) + ArrangePromises::brokenByUndo(arrangement, made);
            QVERIFY2(wrong.isEmpty(), qPrintable(QStringLiteral("song %1: %2").arg(seed).arg(wrong)));
            QCOMPARE(describe(arrange(made.parts, made.options)), describe(arrangement));
        }
    }

    void manyPartsAndBigChords()
    {
        QVector<SourcePart> parts;
        for (int i = 0; i < 200; ++i)
            parts.append(
                {trackOf(QStringLiteral("%1@0+1 %2@0+1").arg(i % 128).arg((i + 60) % 128)), QString::number(i)});
        const auto arrangement = arrange(parts, {24, 8});
        QCOMPARE(arrangement.parts.size(), 24);
        const auto sum = arrangement.sumBefore();
        QCOMPARE(arrangement.sumAfter().notes + sum.droppedInAll(), 400);
        for (const auto &[asked, most] : {std::pair(0, 1), std::pair(1000, ArrangeOptions::mostVoices)}) {
            const auto few = arrange(parts, {asked, asked});
            QVERIFY(few.parts.size() <= std::max(1, std::min(asked, ArrangeOptions::mostPlayers)));
            for (const auto &part : few.parts)
                QVERIFY(part.figures.mostAtOnce <= most);
        }
        std::stop_source stop;
        stop.request_stop();
        QVERIFY_EXCEPTION_THROWN(arrange(parts, {}, stop.get_token()), Interrupted);
    }

    // Against trying every way.
    void assignsAtTheLeastCost()
    {
        std::mt19937 random(1);
        Assignment assignment;
        for (int round = 0; round < 200; ++round) {
            constexpr int rows = 3, columns = 4;
            std::vector<qint64> costs(rows * columns), none(rows);
            for (auto *const list : {&costs, &none})
                std::generate(list->begin(), list->end(), [&random] { return qint64(random() % 20); });
            const auto sum = [&](const auto &columnOf) {
                qint64 all = 0;
                for (int row = 0; row < rows; ++row)
                    all += columnOf[row] < 0 || columnOf[row] >= columns ? none[row]
                                                                         : costs[row * columns + columnOf[row]];
                return all;
            };
            std::vector<int> way(rows + columns); // behind the columns stands "none"
            std::iota(way.begin(), way.end(), 0);
            auto least = Assignment::never;
            do
                least = std::min(least, sum(way));
            while (std::next_permutation(way.begin(), way.end()));
            QCOMPARE(sum(assignment.solve(costs, none, columns)), least);
        }
    }

    // Half a minute of 60 beats a minute stands where half a minute of 120 does.
    void oneTempo()
    {
        Track leader = trackOf(QStringLiteral("60@0+1"));
        leader.appendEvent(TrackEvent::tempo(2 * ticksPerQuarter, 1, 4, 60));
        leader.normalize();
        const auto moved = inTempoOf(trackOf(QStringLiteral("60@1+2 62@4+2")), leader);
        QCOMPARE(notesOf(moved), QStringLiteral("60@1+1.5 62@3+1"));
        QCOMPARE(tempoText(moved.ticksPerMinute()), QStringLiteral("1/4=120"));
        QCOMPARE(tempoText(7 * ticksPerWholeNote / 9), QStringLiteral("1/9=7"));
    }
};

QTEST_APPLESS_MAIN(TestArrangement)
#include "test_arrangement.moc"
