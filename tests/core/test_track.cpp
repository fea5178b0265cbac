#include "core/Track.h"
#include "support/DescribeTrack.h"
#include "support/Rows.h"

#include <QtTest>

#include <algorithm>
#include <random>

Q_DECLARE_METATYPE(TrackEvent)

namespace {

Track trackOf(const QVector<TrackEvent> &events)
{
    Track track;
    track.editEvents() = events;
    return track;
}

} // namespace

class TestTrack : public QObject
{
    Q_OBJECT

private slots:
    void tempoTruncatesTheBeatFirst()
    {
        QCOMPARE(TrackEvent::tempo(0, 1, 4, 120).ticksPerMinute(), 1209600);
        QCOMPARE(TrackEvent::tempo(0, 3, 8, 60).ticksPerMinute(), 907200);
        QCOMPARE(TrackEvent::tempo(0, 1, 11, 100).ticksPerMinute(), 366500); // 3665.45… ticks a beat
        QCOMPARE(TrackEvent::tempo(0, 4294967295, 1, 4294967295).ticksPerMinute() <= maxTicks, true);
    }

    void accessorsOfOtherKindsGiveZero()
    {
        auto tempo = TrackEvent::tempo(0, 3, 8, 60);
        tempo.setLength(5);
        tempo.setVelocity(0.5F);
        QCOMPARE(tempo.length(), 0);
        QCOMPARE(tempo.velocity(), 0.0F);
        QCOMPARE(tempo.bpm(), 60U);
        QCOMPARE(TrackEvent::note(60, 0, 10).denominator(), 0U);
        QCOMPARE(TrackEvent().velocity(), 0.0F);
    }

    void normalize_data()
    {
        const Rows<QVector<TrackEvent>, QString, qint64> row("events", "expected", "length");
        const auto tempo = [](Ticks start, quint32 bpm) { return TrackEvent::tempo(start, 1, 4, bpm); };
        const auto note = [](Ticks start, Ticks length, quint32 pitch) {
            return TrackEvent::note(pitch, start, length);
        };
        row("empty", {}, "", 0);
        row("tempo that is in force", {tempo(0, 120)}, "", 0);
        row("the later of two tempos", {tempo(5, 90), tempo(5, 100), tempo(9, 100)}, "Q1008000@5", 9);
        row("the later of two keys, but both of key and metre",
            {TrackEvent::key(5, 3, 0), TrackEvent::key(5, 4, 0), TrackEvent::metre(5, 3, 4)}, "K4/0@5 M3/4@5", 5);
        row("chord by length, equals in order", {note(0, 20, 64), note(0, 10, 67), note(0, 10, 60)},
            "67@0+10 60@0+10 64@0+20", 20);
        row("other kinds before notes", {note(7, 1, 60), TrackEvent::key(7, 3, 0)}, "K3/0@7 60@7+1", 8);
        row("a last tempo lengthens", {note(0, 80640, 60), tempo(100000, 90)}, "60@0+80640 Q907200@100000", 100000);
        row("a dropped tempo lengthens too", {note(0, 10, 60), tempo(100, 120)}, "60@0+10", 100);
    }

    void normalize()
    {
        QFETCH(QVector<TrackEvent>, events);
        auto track = trackOf(events);
        track.normalize();
        QTEST(track.length(), "length");
        QTEST(describe(track), "expected");
    }

    void sortsAnyOrderStably()
    {
        std::mt19937 random(1);
        for (const unsigned disorder : {3, 100'000}) {
            QVector<TrackEvent> events;
            for (int i = 0; i < 5000; ++i)
                events.append(TrackEvent::note(quint32(i), (i + Ticks(random() % disorder)) / 4, random() % 3));
            auto expected = events;
            std::stable_sort(expected.begin(), expected.end(), [](const TrackEvent &a, const TrackEvent &b) {
                return std::pair(a.start(), a.length()) < std::pair(b.start(), b.length());
            });
            auto track = trackOf(events);
            track.normalize();
            QCOMPARE(describe(track), describe(trackOf(expected)));
        }
    }

    void seeks()
    {
        auto track = trackOf({TrackEvent::note(60, 10, 5), TrackEvent::note(62, 20, 5), TrackEvent::note(60, 20, 9)});
        QCOMPARE(track.firstEventAtOrAfter(0), 0);
        QCOMPARE(track.firstEventAtOrAfter(20), 1);
        QCOMPARE(track.firstEventAtOrAfter(21), 3);
        QCOMPARE(track.pitchCounts().value(60), 2);
    }
};

QTEST_APPLESS_MAIN(TestTrack)
#include "test_track.moc"
