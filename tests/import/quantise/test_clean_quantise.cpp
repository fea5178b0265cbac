#include "core/AbcParser.h"
#include "import/UnitLength.h"
#include "import/quantise/CleanQuantise.h"
#include "support/DescribeTrack.h"
#include "support/MidiBytes.h"
#include "support/Rows.h"

#include <QtTest>

#include <map>
#include <random>

namespace {

// Notes as "pitch@start+length" in milliseconds at 1/4=120, so that 500 are a quarter note; "M3/8" is the metre, and
// "Q150" a tempo a little behind the start of the note before it.
Track played(const QString &text)
{
    Track track;
    Ticks at = 0;
    for (const auto &word : text.split(u' ')) {
        const auto numbers = word.mid(1).split(u'/');
        const auto ticks = [](const QString &ms) { return Ticks(ms.toDouble() * double(ticksPerQuarter) / 500); };
        if (word.startsWith(u'M')) {
            const auto beats = numbers[0].toUInt();
            track.setMetre(beats * quint32(ticksPerWholeNote) / numbers[1].toUInt(), beats);
        } else if (word.startsWith(u'Q')) {
            track.appendEvent(TrackEvent::tempo(at + 40, 1, 4, numbers[0].toUInt()));
        } else {
            at = ticks(word.section(u'@', 1).section(u'+', 0, 0));
            track.appendEvent(TrackEvent::note(word.section(u'@', 0, 0).toUInt(), at, ticks(word.section(u'+', 1))));
        }
    }
    track.normalize();
    return track;
}

// The music as it would be written in eighths.
QString score(const Track &track)
{
    auto text = changeUnitLength(track, QStringLiteral("1/8")).toAbc();
    return text.mid(text.indexOf(QStringLiteral("\nK: C\n")) + 6).simplified();
}

// A song of eighths, sixteenths and triplets by the measure, played by a hand that is a little early or late.
struct Performance
{
    Track score;
    Track played;
};

Performance perform(quint32 seed)
{
    std::mt19937 random(seed);
    const auto below = [&random](int limit) { return Ticks(random() % unsigned(limit)); };
    Performance song;
    for (Ticks measure = 0; measure < 12; ++measure) {
        const Ticks step = std::array<Ticks, 3>{5040, 2520, 3360}[size_t(below(3))];
        for (Ticks start = measure * ticksPerWholeNote; start < (measure + 1) * ticksPerWholeNote; start += step) {
            const auto pitch = quint32(60 + below(12));
            const auto swerve = start > 0 ? below(321) - 160 : 0; // 8 ms
            song.score.appendEvent(TrackEvent::note(pitch, start, step));
            song.played.appendEvent(TrackEvent::note(pitch, start + swerve, step * (85 + below(11)) / 100));
        }
    }
    song.score.normalize();
    song.played.normalize();
    return song;
}

double largestMs(const Shifts &shifts)
{
    ShiftReport report;
    report.add(shifts);
    return report.largestMs;
}

} // namespace

class TestCleanQuantise : public QObject
{
    Q_OBJECT

private slots:
    void scores_data()
    {
        const Rows<QString, QString> row("played", "score"); // in eighths
        row("eighths", "60@3+240 62@247+230 64@508+235 65@744+255 67@1000+480", "C D E F G2");
        row("sixteenths among them", "60@0+240 62@255+110 64@371+120 65@500+250 67@757+240", "C D/ E/ F G");
        row("triplets", "60@0+160 62@170+150 64@330+160 65@502+160 67@660+170 69@838+160 60@1000+500",
            "C2/3 D2/3 E2/3 F2/3 G2/3 A2/3 C2");
        row("triplets in one measure, eighths in the next",
            "60@2+160 62@170+150 64@330+160 65@502+480 67@1001+990 60@2003+240 62@2247+245 64@2500+250 65@2755+230 "
            "67@2996+990",
            "C2/3 D2/3 E2/3 F2 G4 C D E F G4");
        row("triplets in a measure that begins on an eighth",
            "M3/8 60@0+740 62@752+160 64@918+160 65@1080+170 67@1250+250", "C3 D2/3 E2/3 F2/3 G");
        row("a chord that is rolled", "60@0+480 64@8+480 67@12+470 72@500+500", "[C2E2G2] c2");
        row("short notes stay short", "60@0+110 62@500+120 64@1000+125 65@1500+500", "C/ z3/ D/ z3/ E/ z3/ F2");
        row("a long note below others", "48@0+1010 60@2+480 64@503+500 67@1001+500", "[C2C,4] E2 G2");
        row("struck again", "60@0+500 60@503+245 60@747+250", "C2 C C");
        row("further away than may be moved", "60@0+470 62@500+470 64@1031+450 65@1500+500", "C2 D17/8 E15/8 F2");
        row("a change of tempo stays with its note", "60@0+490 62@503+480 Q150 64@1003+480", "C2 Q: 1/4=150 D2 E2");
        row("nothing", "M4/4", "");
    }

    void scores()
    {
        QFETCH(QString, played);
        QTEST(score(cleanQuantised(::played(played))), "score");
    }

    void findsWhatWasPlayed_data()
    {
        QTest::addColumn<quint32>("seed");
        for (quint32 seed = 0; seed < 20; ++seed)
            QTest::addRow("%u", seed) << seed;
    }

    void findsWhatWasPlayed()
    {
        QFETCH(quint32, seed);
        const auto song = perform(seed);
        Shifts shifts;
        const auto found = cleanQuantised(song.played, &shifts);
        const auto words = [](const Track &track) { return describe(track).split(u' '); };
        QCOMPARE(words(found), words(song.score));
        QVERIFY(largestMs(shifts) <= 8.5);
        QCOMPARE(words(cleanQuantised(found)), words(found));
    }

    // Whatever comes, every note stays, near its time and above no length; later ones of its pitch are not covered.
    void keepsNotes_data() { findsWhatWasPlayed_data(); }

    void keepsNotes()
    {
        QFETCH(quint32, seed);
        std::mt19937 random(seed);
        Track track;
        track.setMetre(quint32(random() % 3) * 5000, 4);
        std::array<Ticks, 88> free{}; // by pitch
        for (int i = 0; i < 300; ++i) {
            const auto pitch = random() % 88;
            const auto start = std::max(free[pitch], Ticks(random() % 400'000));
            const auto length = Ticks(random() % 30'000);
            free[pitch] = start + length + 700; // further than two starts can come together
            track.appendEvent(TrackEvent::note(quint32(21 + pitch), start, length));
            if (i % 10 == 0)
                track.appendEvent(TrackEvent::tempo(start, 1, 4, 80 + seed + quint32(random() % 8)));
            if (i % 50 == 0)
                track.appendEvent(TrackEvent::metre(start, 1 + quint32(random() % 9), 8));
        }
        track.normalize();
        Shifts shifts;
        const auto found = cleanQuantised(track, &shifts);
        QCOMPARE(found.noteCount(), track.noteCount());
        QCOMPARE(found.pitchCounts(), track.pitchCounts());
        QVERIFY(largestMs(shifts) <= 15);
        std::map<quint32, Ticks> ends;
        for (const auto &event : found.events()) {
            if (!event.isNote())
                continue;
            QVERIFY(event.length() > 0);
            QVERIFY(event.start() >= ends[event.pitch()]);
            ends[event.pitch()] = event.end();
        }
    }

    void importsMidi()
    {
        using namespace MidiBytes;
        const auto bytes = file({noteOn(1, 60) + noteOff(43, 60) + noteOn(3, 62) + noteOff(42, 62) + noteOn(8, 64) +
                                 noteOff(90, 64) + endOfTrack()});
        MidiImportOptions options;
        options.mergedUnitLength = true;
        auto track = importMidiCleanly(bytes, options).tracks.first();
        QCOMPARE(describe(track), QStringLiteral("60@0+5040 62@5040+5040 64@10080+10080"));
        QCOMPARE(track.headerField(QStringLiteral("L")), QStringLiteral("1/8"));
    }
};

QTEST_APPLESS_MAIN(TestCleanQuantise)
#include "test_clean_quantise.moc"
