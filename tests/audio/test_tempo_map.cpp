#include "audio/TempoMap.h"

#include <QtTest>

#include <random>

namespace {

TrackEvent tempo(Ticks start, qint64 ticksPerMinute)
{
    auto event = TrackEvent::tempo(start, 1, quint32(ticksPerWholeNote), quint32(ticksPerMinute));
    Q_ASSERT(event.ticksPerMinute() == ticksPerMinute);
    return event;
}

Track trackOf(qint64 ticksPerMinute, const QVector<TrackEvent> &events)
{
    Track track;
    track.setTempo(ticksPerMinute);
    track.editEvents() = events;
    track.normalize();
    return track;
}

} // namespace

class TestTempoMap : public QObject
{
    Q_OBJECT

private slots:
    void samplesOfTicks_data()
    {
        QTest::addColumn<Track>("track");
        QTest::addColumn<qint64>("tick");
        QTest::addColumn<quint64>("samples");

        const auto steady = trackOf(defaultTicksPerMinute, {}); // 48000 / 20160 samples a tick
        QTest::newRow("start") << steady << qint64(0) << quint64(0);
        QTest::newRow("a quarter at 120") << steady << qint64(10080) << quint64(24000);
        QTest::newRow("truncated") << steady << qint64(1) << quint64(2);
        QTest::newRow("2^60 is far but finite") << steady << maxTicks << quint64(2745051201444873728);

        // 1000 ticks a minute: 2880 samples a tick. 7 000 000 a minute: 0.41142… samples a tick.
        const auto faster = trackOf(1000, {tempo(3, 7'000'000), tempo(8, 1000)});
        QTest::newRow("before the change") << faster << qint64(3) << quint64(8640);
        QTest::newRow("after the change") << faster << qint64(5) << quint64(8640);
        QTest::newRow("after it, truncated") << faster << qint64(6) << quint64(8641);
        QTest::newRow("a segment starts on a whole sample") << faster << qint64(9) << quint64(8642 + 2880);

        const auto mended = trackOf(0, {tempo(10080, 0), tempo(20160, 604800)});
        QTest::newRow("a tempo of 0 at the start is the default") << mended << qint64(10080) << quint64(24000);
        QTest::newRow("a later tempo of 0 changes nothing") << mended << qint64(20160) << quint64(48000);
        QTest::newRow("the next good one does") << mended << qint64(30240) << quint64(96000);
        QTest::newRow("limited") << trackOf(1, {}) << maxTicks << TempoMap::maxSamples;
    }

    void samplesOfTicks()
    {
        QFETCH(const Track, track);
        QFETCH(const qint64, tick);
        QFETCH(const quint64, samples);
        QCOMPARE(TempoMap(track, 48000).samplesAt(tick), samples);
    }

    // A tick must be found again at its sample, or one earlier where truncation put that sample before the tick.
    void bothDirectionsAgree()
    {
        std::mt19937 random(7);
        QVector<TrackEvent> events;
        Ticks start = 0;
        for (int i = 0; i < 200; ++i)
            events.append(tempo(start += Ticks(random() % 50000), 1 + random() % 3'000'000));
        const TempoMap map(trackOf(1209600, events), 44100);
        quint64 lastSamples = 0;
        for (Ticks tick = 0; tick < start + 50000; tick += Ticks(random() % 400)) {
            const auto samples = map.samplesAt(tick);
            QVERIFY(samples >= lastSamples);
            lastSamples = samples;
            QVERIFY(map.tickAt(samples) <= tick);
            QVERIFY(map.tickAt(samples + 1) >= tick);
        }
    }

    void tickIsLimited()
    {
        const TempoMap fast(trackOf(maxTicks, {}), 48000);
        QCOMPARE(fast.tickAt(TempoMap::maxSamples), maxTicks);
        QCOMPARE(TempoMap().samplesAt(100), quint64(0));
    }
};

QTEST_GUILESS_MAIN(TestTempoMap)
#include "test_tempo_map.moc"
