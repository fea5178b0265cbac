// What happens when samples need more memory than there is.
#include "SampleFiles.h"
#include "audio/SampleCache.h"
#include "audio/engine/BuiltinEngine.h"
#include "audio/render/RenderTimeline.h"
#include "base/ParallelJobs.h"

#include <QtTest>

class TestSampleCache : public QObject
{
    Q_OBJECT

    static constexpr int rate = 48000;
    static constexpr int sampleFrames = 10000;
    const std::size_t sampleBytes = SoundData(1, sampleFrames, rate).bytes();
    static constexpr DspClock noteFrames = 1000;
    static constexpr int files = 12;
    // Eight files fit in, and none of them is long.
    const std::size_t tooLittle = 8 * sampleBytes + sampleBytes / 2;

    const SampleFiles samples_;
    const BuiltinEngine engine_{EngineOutput::Silent};
    QStringList loaded_;

    QString file(int number) const { return samples_.level(qint16(1000 * (number + 1)), sampleFrames); }
    SampleCache cacheOf(std::size_t bytes)
    {
        loaded_.clear();
        return SampleCache(
            engine_, rate, [this](const QString &path) { loaded_.append(path); }, bytes);
    }

    // A track for each file, one note after the other.
    std::vector<RenderTrack> tracks(double speed) const
    {
        std::vector<RenderTrack> tracks;
        for (int i = 0; i < files; ++i) {
            const Ticks tick = ticksPerWholeNote / 4; // half a second
            const auto track = trackOf({TrackEvent::note(60, i * tick, tick / 24)});
            tracks.push_back({{track, instrumentOf(file(i), 0, speed), rate, 0}, {}});
        }
        return tracks;
    }

    static std::vector<TrackPlayback> playbacks(const std::vector<RenderTrack> &tracks)
    {
        std::vector<TrackPlayback> all;
        for (const auto &track : tracks)
            all.push_back(track.playback);
        return all;
    }

private slots:
    // Samples that are decoded at once do not take the room from each other for good.
    void allArePrepared()
    {
        for (const std::size_t cores : {1, 4}) {
            auto cache = cacheOf(tooLittle);
            ParallelJobs jobs(cores);
            QStringList told;
            cache.prepare(playbacks(tracks(1.5)), jobs,
                          [&](int done, int total) { told += QStringLiteral("%1/%2").arg(done).arg(total); });
            QCOMPARE(told.first(), QStringLiteral("0/%1").arg(int(files)));
            QCOMPARE(told.last(), QStringLiteral("%1/%1").arg(int(files)));
            for (int i = 0; i < files; ++i)
                QCOMPARE(cache.find({{file(i)}, 1.5, 440}, noteFrames).ratio, 1.0);
        }
    }

    // A render plays a song whose samples do not fit in together.
    void rendersHoldWhatSoundsOnly()
    {
        auto cache = cacheOf(tooLittle);
        RenderTimeline timeline(tracks(1), cache);
        for (int i = 0; i < files; ++i) {
            const auto voices = timeline.takeVoices(DspClock(i) * rate / 2 + noteFrames);
            QCOMPARE(voices.size(), std::size_t(1));
            QCOMPARE(voices[0].sound->plane(0)[0], float(1000 * (i + 1)) / 32768);
        }
    }

    void longNotesAreNotResampled()
    {
        auto cache = cacheOf(4 * sampleBytes);
        ParallelJobs jobs(1);
        auto track = trackOf({TrackEvent::note(60, 0, ticksPerWholeNote)});
        cache.prepare({{track, instrumentOf(file(0), 0, 0.5), rate, 0}}, jobs);
        QCOMPARE(cache.find({{file(0)}, 0.5, 440}, noteFrames).ratio, 0.5);
    }

    // Of a long sample only what the notes reach is decoded, and what they play is the same.
    void longSamplesAreDecodedInPart()
    {
        const NoteEntry entry{{file(0)}, 0.5, 440};
        const auto preparedFor = [&](SampleCache &cache) {
            ParallelJobs jobs(2);
            cache.prepare(playbacks({tracks(0.5)[0]}), jobs);
            return cache.find(entry, noteFrames);
        };
        auto roomy = cacheOf(64 * sampleBytes);
        const auto expected = preparedFor(roomy);
        auto cache = cacheOf(4 * sampleBytes);
        const auto found = preparedFor(cache);
        QCOMPARE(found.ratio, 1.0);
        QVERIFY(std::equal(found.sound->plane(0), found.sound->plane(0) + noteFrames, expected.sound->plane(0)));
        QCOMPARE(cache.find({{file(0)}, 1, 440}, noteFrames / 2).sound->frames(), noteFrames / 2 + 1024);
        QCOMPARE(loaded_.size(), 1);
        QCOMPARE(cache.find(entry, never).sound->frames(), std::size_t(sampleFrames));
        QCOMPARE(loaded_.size(), 2);
    }

    // What found no room is looked at again, what cannot be decoded is not.
    void secondTries()
    {
        auto cache = cacheOf(sampleBytes);
        const NoteEntry first{{file(0)}, 1, 440}, second{{file(1)}, 1, 440};
        {
            const auto inUse = cache.find(first, never);
            QTest::ignoreMessage(
                QtWarningMsg, qUtf8Printable(file(1) + QStringLiteral(": The samples in use need too much memory.")));
            QVERIFY(!cache.find(second, never).sound && !cache.find(second, never).sound);
        }
        QVERIFY(cache.find(second, never).sound);

        const NoteEntry damaged{{samples_.write(QStringLiteral("damaged.wav"), "RIFF")}, 1, 440};
        QTest::ignoreMessage(QtWarningMsg, QRegularExpression(QStringLiteral("damaged.wav: ")));
        QVERIFY(!cache.find(damaged, noteFrames).sound && !cache.find(damaged, noteFrames).sound);
        QCOMPARE(loaded_.count(damaged.files.first()), 1);
    }
};

QTEST_GUILESS_MAIN(TestSampleCache)
#include "test_sample_cache.moc"
