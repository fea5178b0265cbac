#include "core/Track.h"

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

bool sameEvent(const TrackEvent &a, const TrackEvent &b)
{
    return a.kind() == b.kind() && a.start() == b.start() && a.length() == b.length() && a.pitch() == b.pitch() &&
           a.ticksPerMinute() == b.ticksPerMinute() && a.keyIndex() == b.keyIndex() && a.numerator() == b.numerator();
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
        QTest::addColumn<QVector<TrackEvent>>("events");
        QTest::addColumn<QVector<TrackEvent>>("expected");
        QTest::addColumn<qint64>("length");

        const auto tempo = [](Ticks start, quint32 bpm) { return TrackEvent::tempo(start, 1, 4, bpm); };
        const auto note = [](Ticks start, Ticks length, quint32 pitch) {
            return TrackEvent::note(pitch, start, length);
        };
        using Events = QVector<TrackEvent>;

        QTest::newRow("empty") << Events() << Events() << qint64(0);
        QTest::newRow("tempo that is in force") << Events{tempo(0, 120)} << Events() << qint64(0);
        QTest::newRow("the later of two tempos")
            << Events{tempo(5, 90), tempo(5, 100), tempo(9, 100)} << Events{tempo(5, 100)} << qint64(9);
        QTest::newRow("the later of two keys, but both of key and metre")
            << Events{TrackEvent::key(5, 3, 0), TrackEvent::key(5, 4, 0), TrackEvent::metre(5, 3, 4)}
            << Events{TrackEvent::key(5, 4, 0), TrackEvent::metre(5, 3, 4)} << qint64(5);
        QTest::newRow("chord by length, equals in order")
            << Events{note(0, 20, 64), note(0, 10, 67), note(0, 10, 60)}
            << Events{note(0, 10, 67), note(0, 10, 60), note(0, 20, 64)} << qint64(20);
        QTest::newRow("other kinds before notes") << Events{note(7, 1, 60), TrackEvent::key(7, 3, 0)}
                                                  << Events{TrackEvent::key(7, 3, 0), note(7, 1, 60)} << qint64(8);
        QTest::newRow("a last tempo lengthens") << Events{note(0, 80640, 60), tempo(100000, 90)}
                                                << Events{note(0, 80640, 60), tempo(100000, 90)} << qint64(100000);
        QTest::newRow("a dropped tempo lengthens too")
            << Events{note(0, 10, 60), tempo(100, 120)} << Events{note(0, 10, 60)} << qint64(100);
    }

    void normalize()
    {
        QFETCH(QVector<TrackEvent>, events);
        QFETCH(QVector<TrackEvent>, expected);
        auto track = trackOf(events);
        track.normalize();
        QTEST(track.length(), "length");
        QCOMPARE(track.events().size(), expected.size());
        QVERIFY(std::equal(expected.begin(), expected.end(), track.events().begin(), sameEvent));
    }

    void sortsAnyOrderStably_data()
    {
        QTest::addColumn<int>("disorder");
        QTest::newRow("nearly sorted") << 3;
        QTest::newRow("shuffled") << 100000;
    }

    void sortsAnyOrderStably()
    {
        QFETCH(int, disorder);
        std::mt19937 random(1);
        QVector<TrackEvent> events;
        for (int i = 0; i < 5000; ++i)
            events.append(TrackEvent::note(quint32(i), (i + Ticks(random() % unsigned(disorder))) / 4, random() % 3));
        auto expected = events;
        std::stable_sort(expected.begin(), expected.end(), [](const TrackEvent &a, const TrackEvent &b) {
            return std::pair(a.start(), a.length()) < std::pair(b.start(), b.length());
        });
        auto track = trackOf(events);
        track.normalize();
        QVERIFY(std::equal(expected.begin(), expected.end(), track.events().begin(), sameEvent));
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
