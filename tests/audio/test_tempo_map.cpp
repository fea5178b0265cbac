#include "SampleFiles.h"
#include "audio/TempoMap.h"
#include "audio/TrackPlayback.h"
#include "support/Rows.h"

#include <QtTest>

#include <cmath>
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
        row("whatever was before", trackOf({tempoEvent(10080, 0)}, 604800), 20160, 96000);
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

    void ticksOfSamples_data()
    {
        const Rows<Track, quint64, qint64> row("track", "sample", "tick");
        const auto faster = trackOf({tempoEvent(3, 7'000'000), tempoEvent(8, 1000)}, 1000);
        row("start", faster, 0, 0);
        row("just before a tick", faster, 2879, 0);
        row("on it", faster, 2880, 1);
        row("on a change", faster, 8640, 3);
        row("behind it", faster, 8641, 5);
        row("where the next segment starts", faster, 8642, 8);
        row("in it", faster, 8642 + 2880, 9);
    }

    void ticksOfSamples()
    {
        QFETCH(const Track, track);
        QFETCH(const quint64, sample);
        QTEST(TempoMap(track, 48000).tickAt(sample), "tick");
    }

    // At 2880 samples a tick; "joins" with the tick at which the other one is.
    void takesNotesInTheirOrder()
    {
        QVector<TrackEvent> events{tempoEvent(5, 2000)};
        for (const Ticks start : {0, 2, 2, 4, 9})
            events.append(TrackEvent::note(60, start, 1));
        const auto track = trackOf(events, 1000);
        const Instrument instrument;
        TrackPlayback playback(track, instrument, 48000, 100);
        const auto take = [&](Ticks horizon) {
            QStringList taken;
            while (const auto note = playback.takeNote(horizon))
                taken += QString::number(note->start);
            return taken.join(u' ');
        };
        QCOMPARE(playback.tickAt(50), Ticks(0));
        QCOMPARE(take(1), QStringLiteral("100"));
        QCOMPARE(take(1), QString());
        QCOMPARE(take(2), QStringLiteral("5860 5860"));
        QCOMPARE(take(8), QStringLiteral("11620"));
        QVERIFY(!playback.isExhausted());
        QCOMPARE(take(9), QStringLiteral("20260"));
        QVERIFY(playback.isExhausted());
        QCOMPARE(playback.lastEventClock(), DspClock(20260));
        playback.seek(2, 50'000);
        QCOMPARE(take(4), QStringLiteral("50000 50000 55760"));

        const TrackPlayback leader(track, instrument, 48000, 0);
        for (const auto &[from, taken] :
             {std::pair(0, "0 5760 5760 11520"), {1, "5760 5760 11520"}, {5760, "5760 5760 11520"}, {5761, "11520"}}) {
            playback.join(leader, DspClock(from));
            QCOMPARE(take(4), QLatin1String(taken)); // what is past is left out
        }
        QCOMPARE(TrackPlayback(Track(), instrument, 48000, 7).lastEventClock(), DspClock(7));
    }

    void fades_data()
    {
        const Rows<double, qint64> row("seconds", "samples");
        row("half a second", 0.5, 24000);
        row("none", 0.0, 0);
        row("less than none", -1.0, 0);
        row("no number", std::nan(""), 0);
        row("a day at most", 1e30, qint64(48000) * 86400);
    }

    void fades()
    {
        QFETCH(double, seconds);
        QTEST(qint64(fadeSamples(seconds, 48000)), "samples");
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
