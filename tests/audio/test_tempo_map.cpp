#include "SampleFiles.h"
#include "audio/TempoMap.h"
#include "support/Rows.h"

#include <QtTest>

#include <random>

class TestTempoMap : public QObject
{
    Q_OBJECT

private slots:
    void samplesOfTicks_data()
    {
        const Rows<Track, qint64, quint64> row("track", "tick", "samples");

        const auto steady = trackOf({}); // 48000 / 20160 samples a tick
        row("start", steady, 0, 0);
        row("a quarter at 120", steady, 10080, 24000);
        row("truncated", steady, 1, 2);
        row("2^60 is far but finite", steady, maxTicks, 2745051201444873728);

        // 1000 ticks a minute: 2880 samples a tick. 7 000 000 a minute: 0.41142… samples a tick.
        const auto faster = trackOf({tempoEvent(3, 7'000'000), tempoEvent(8, 1000)}, 1000);
        row("before the change", faster, 3, 8640);
        row("after the change", faster, 5, 8640);
        row("after it, truncated", faster, 6, 8641);
        row("a segment starts on a whole sample", faster, 9, 8642 + 2880);

        const auto mended = trackOf({tempoEvent(10080, 0), tempoEvent(20160, 604800)}, 0);
        row("a tempo of 0 at the start is the default", mended, 10080, 24000);
        row("a later tempo of 0 changes nothing", mended, 20160, 48000);
        row("the next good one does", mended, 30240, 96000);
        row("limited", trackOf({}, 1), maxTicks, TempoMap::maxSamples);
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
            events.append(tempoEvent(start += Ticks(random() % 50000), 1 + random() % 3'000'000));
        const TempoMap map(trackOf(events, 1209600), 44100);
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
        const TempoMap fast(trackOf({}, maxTicks), 48000);
        QCOMPARE(fast.tickAt(TempoMap::maxSamples), maxTicks);
        QCOMPARE(TempoMap().samplesAt(100), quint64(0));
    }
};

QTEST_GUILESS_MAIN(TestTempoMap)
#include "test_tempo_map.moc"
