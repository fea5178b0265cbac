#include "audio/LoggedLines.h"
#include "audio/SampleFiles.h"
#include "audio/VirtualPlayer.h"
#include "audio/WaveFile.h"
#include "audio/render/TrackRenderer.h"
#include "support/GatedEngine.h"
#include "support/Rows.h"

#include <QDir>
#include <QSignalSpy>
#include <QtTest>

#include <random>

namespace {

std::unique_ptr<AudioEngine> waveEngine(const QString &path)
{
    return std::make_unique<BuiltinEngine>(EngineOutput::WavFile, path.toStdU16String());
}

// What an engine does that knows nothing but blocks. One of its calls fails once, without effect.
class BlockEngine : public BuiltinEngine
{
public:
    enum class Failing { Nothing, Level, Play, Update };

    BlockEngine(const QString &path, Failing failing)
        : BuiltinEngine(EngineOutput::WavFile, path.toStdU16String()), failing_(failing)
    {
    }
    bool canMix() const override { return false; }
    AudioResult render(Timeline &timeline, RenderHost &host) override { return AudioEngine::render(timeline, host); }
    AudioResult setGroupLevel(GroupId group, GroupLevel level) override
    {
        return fails(Failing::Level) ? AudioResult::LibraryError : BuiltinEngine::setGroupLevel(group, level);
    }
    AudioResult play(const VoiceSpec &spec, VoiceId &voice) override
    {
        return fails(Failing::Play) ? AudioResult::LibraryError : BuiltinEngine::play(spec, voice);
    }
    AudioResult update() override
    {
        return fails(Failing::Update) ? AudioResult::LibraryError : BuiltinEngine::update();
    }

private:
    bool fails(Failing call) { return failing_ == call && !std::exchange(hasFailed_, true); }

    Failing failing_;
    bool hasFailed_ = false;
};

// A render with all that it told, in order.
class Render
{
public:
    explicit Render(const QString &file, std::size_t cores = 2, const FileEngineFactory &makeEngine = waveEngine)
        : renderer(file, makeEngine, cores)
    {
        const auto on = [this](auto signal, auto slot) { QObject::connect(&renderer, signal, &renderer, slot); };
        on(&TrackRenderer::renderStarted, [this] { told.append(QStringLiteral("started")); });
        on(&TrackRenderer::renderFinished, [this] { told.append(QStringLiteral("finished")); });
        on(&TrackRenderer::renderCancelled, [this] { told.append(QStringLiteral("cancelled")); });
        on(&TrackRenderer::renderFailed, [this](const QString &why) { told.append(QStringLiteral("failed: ") + why); });
        on(&TrackRenderer::renderProgress,
           [this](quint64 current, quint64 total) { progress.emplace_back(current, total); });
    }

    void add(const Track &track, const Instrument &instrument, float volume = 1, float pan = 0)
    {
        renderer.addTrack(track, instrument, {volume, pan});
    }

    bool run()
    {
        renderer.render();
        return finish();
    }
    bool finish()
    {
        return QTest::qWaitFor([this] { return !renderer.isRunning(); }, 20000);
    }

    TrackRenderer renderer;
    QStringList told;
    std::vector<std::pair<quint64, quint64>> progress;
};

// Chords, runs and changes of tempo, so that spans cut through many notes.
Track busyTrack(unsigned seed, int notes)
{
    std::mt19937 random(seed);
    QVector<TrackEvent> events;
    Ticks start = 0;
    for (int i = 0; i < notes; ++i) {
        if (i % 50 == 25)
            events.append(tempoEvent(start, 900'000 + random() % 700'000));
        events.append(
            TrackEvent::note(40 + random() % 40, start, Ticks(1000 + random() % 20000), float(random() % 100) / 100));
        start += Ticks(random() % 3000);
    }
    return trackOf(events);
}

} // namespace

class TestTrackRenderer : public QObject
{
    Q_OBJECT

    const SampleFiles files_;
    const QString wav_ = files_.path(QStringLiteral("song.wav"));

    // A sample of its own for every pitch, at speeds that differ.
    Instrument richInstrument() const
    {
        std::mt19937 random(5);
        QVector<qint16> noise;
        for (int i = 0; i < 30000; ++i)
            noise.append(qint16(int(random() % 12000) - 6000));
        auto instrument = instrumentOf(files_.write(QStringLiteral("noise.wav"), waveBytes(noise, 44100)), 0.05);
        for (auto &note : instrument.tuning.notes)
            note.rate = 0.5 + double(random() % 1000) / 700;
        return instrument;
    }

    QByteArray rendered(const QVector<Track> &tracks, std::size_t cores,
                        const FileEngineFactory &makeEngine = waveEngine) const
    {
        Render render(wav_, cores, makeEngine);
        for (const auto &track : tracks)
            render.add(track, richInstrument(), 0.3F, 0.4F);
        QFile file(wav_);
        return render.run() && file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    }

private slots:
    void init() { QFile::remove(wav_); }

    void onsetsAgreeWithTheTempo()
    {
        // 2.5, 2.25 and 3 samples a tick.
        const auto click = instrumentOf(files_.click());
        const auto sparse =
            trackOf({TrackEvent::note(60, 0, 9), TrackEvent::note(60, 1001, 9), tempoEvent(20001, 1'280'000),
                     TrackEvent::note(60, 20006, 9), tempoEvent(30000, 960'000), TrackEvent::note(60, 40000, 9)},
                    1'152'000);
        Render render(wav_);
        render.add(sparse, click);
        render.add(trackOf({TrackEvent::note(60, 777, 9)}, 1'152'000), click, 0.5F, -1);
        QVERIFY(render.run());
        QCOMPARE(render.told, list("started, finished"));
        const WaveFile wave(wav_);
        QVERIFY(wave.isValid);
        std::vector<std::size_t> onsets;
        for (std::size_t i = 0; i < wave.left.size(); ++i) {
            if (wave.left[i] != 0)
                onsets.push_back(i);
        }
        const std::size_t second = 50002, third = 50002 + 22497; // where the tempo changes
        QCOMPARE(onsets, std::vector<std::size_t>({0, 1942, 2502, second + 11, third + 30000}));
        QCOMPARE(wave.left[0], qint16(std::lround(16384 * std::sqrt(0.5))));
        QCOMPARE(wave.left[1942], qint16(std::lround(8192 * std::sqrt(0.5))));
        QCOMPARE(wave.right[1942], qint16(0));
    }

    void coresDoNotChangeTheBytes()
    {
        const QVector<Track> tracks{busyTrack(1, 700), busyTrack(2, 400)};
        const auto one = rendered(tracks, 1);
        QVERIFY(one.size() > 48000 * 4 * 10);
        for (const std::size_t cores : {2, 3, 16})
            QVERIFY(rendered(tracks, cores) == one);
    }

    // By spans or by blocks; and what fails once is told once and costs no more than itself.
    void enginesAreInterchangeable_data()
    {
        using Failing = BlockEngine::Failing;
        const Rows<int, int, bool> row("failing", "messages", "isSame");
        row("nothing", int(Failing::Nothing), 0, true);
        row("the master's level", int(Failing::Level), 1, true);
        row("a voice", int(Failing::Play), 1, false);
        row("a block", int(Failing::Update), 1, true);
    }

    void enginesAreInterchangeable()
    {
        QFETCH(int, failing);
        QFETCH(int, messages);
        QFETCH(bool, isSame);
        const LoggedLines logged;
        const QVector<Track> tracks{busyTrack(1, 100), busyTrack(2, 60)};
        const auto blocks = rendered(tracks, 2, [failing](const QString &path) {
            return std::make_unique<BlockEngine>(path, BlockEngine::Failing(failing));
        });
        const auto spans = rendered(tracks, 2);
        QCOMPARE(blocks.size(), spans.size());
        QCOMPARE(blocks == spans, isSame);
        QCOMPARE(logged.count("Audio Error: The sound library failed.\n"), messages);
    }

    // What was prepared sounds the same live.
    void soundsLikePlayback()
    {
        const auto track = busyTrack(3, 300);
        const auto instrument = richInstrument();
        Render render(wav_);
        render.add(track, instrument, 0.3F, 0.4F);
        QVERIFY(render.run());
        const WaveFile wave(wav_);

        VirtualPlayer player;
        player.worker.precacheInstrument(instrument, track);
        player.worker.playTrack({QStringLiteral("a"), track, instrument, {0.3F, 0.4F}});
        constexpr std::size_t leadIn = 4800;
        player.play(leadIn + wave.left.size());
        QVERIFY(wave.isValid && wave.left.size() > 48000 * 5);
        int differences = 0;
        for (std::size_t i = 0; i < wave.left.size(); ++i)
            differences += std::abs(player.left[leadIn + i] * 32768 - float(wave.left[i])) > 0.51F;
        QCOMPARE(differences, 0);
    }

    void releasesAreWrittenWhole()
    {
        Render render(wav_);
        render.add(trackOf({TrackEvent::note(60, 0, 10080)}), instrumentOf(files_.level(16384, 96000), 0.5));
        QVERIFY(render.run());
        const WaveFile wave(wav_);
        const auto full = wave.left.front();
        QVERIFY(wave.left.size() >= 48000 && wave.left.size() < 48000 + 512);
        QCOMPARE(wave.left[23999], full);
        QVERIFY(std::abs(wave.left[36000] - full / 2) <= 1);
        QVERIFY(wave.left[47900] > 0 && wave.left[47990] < 10);
    }

    void nothingIsAnEmptyFile()
    {
        Render render(wav_);
        QVERIFY(render.run());
        QCOMPARE(render.told, list("started, finished"));
        const WaveFile wave(wav_);
        QVERIFY(wave.isValid && wave.left.empty());
    }

    void progressIsEvery64thLook()
    {
        const auto click = instrumentOf(files_.click());
        QVector<TrackEvent> events;
        for (int i = 0; i < 100; ++i)
            events.append(TrackEvent::note(60, i * 2016, 2016)); // 0.1 s each
        Render render(wav_);
        for (int i = 0; i < 3; ++i)
            render.add(trackOf(events), click);
        QVERIFY(render.run());
        QCOMPARE(render.told, list("started, finished"));
        const int blocks = 48000 * 10 / 512; // as long as all tracks have notes to come
        QVERIFY(std::abs(int(render.progress.size()) - 3 * blocks / 64) <= 1);
        quint64 last = 0;
        for (const auto &[current, total] : render.progress) {
            QCOMPARE(total, quint64(201600));
            QVERIFY(current >= last && current <= total);
            last = current;
        }
        QVERIFY(last > 190000);
    }

    void refusals_data()
    {
        const Rows<Track, QString> row("track", "told");
        const auto tooLong = QStringLiteral("failed: The song is longer than 6 hours.");
        const auto at = [](Ticks minutes) {
            return trackOf({TrackEvent::note(60, minutes * defaultTicksPerMinute, 100)});
        };
        row("ten hours' rest", at(600), tooLong);
        row("2^60", trackOf({TrackEvent::note(60, maxTicks, 100)}), tooLong);
        row("a note of ten hours of a short sample", trackOf({TrackEvent::note(60, 0, 600 * defaultTicksPerMinute)}),
            "");
        row("tempo 0", trackOf({tempoEvent(5, 0), TrackEvent::note(60, 10, 100)}, 0), "");
        row("no such pitch", trackOf({TrackEvent::note(5, 0, 100)}), "");
    }

    void refusals()
    {
        QFETCH(const Track, track);
        QFETCH(const QString, told);
        Render render(wav_);
        render.add(track, instrumentOf(files_.click(), 0.1, 1.5));
        QVERIFY(render.run());
        QCOMPARE(render.told.value(1, QString()), told.isEmpty() ? QStringLiteral("finished") : told);
        QCOMPARE(WaveFile(wav_).isValid, told.isEmpty());
        QCOMPARE(QDir(files_.path(QStringLiteral("."))).entryList({QStringLiteral("*.saving")}).size(), 0);
    }

    void failuresLeaveTheOldFile()
    {
        files_.write(QStringLiteral("song.wav"), "precious");
        const LoggedLines logged;
        {
            Render render(files_.path(QStringLiteral("no/such/directory.wav")));
            QVERIFY(render.run());
            QCOMPARE(render.told, list("started, failed: The folder does not exist., finished"));
            Render onto(files_.path(QStringLiteral(".")));
            QVERIFY(onto.run());
            QCOMPARE(onto.told, list("started, failed: Not a regular file., finished"));
        }
        Render cancelled(wav_);
        cancelled.renderer.cancel(); // before it runs: no effect
        cancelled.add(trackOf({TrackEvent::note(60, 6000 * ticksPerQuarter, 100)}), instrumentOf(files_.click()));
        cancelled.renderer.render();
        QVERIFY(QTest::qWaitFor([&] { return !cancelled.progress.empty(); }, 5000));
        cancelled.renderer.cancel();
        QVERIFY(cancelled.finish());
        QCOMPARE(cancelled.told, list("started, cancelled, finished"));

        {
            Render abandoned(wav_);
            abandoned.add(busyTrack(4, 3000), richInstrument());
            abandoned.renderer.render();
            QTest::qWait(20);
        }
        QFile file(wav_);
        QVERIFY(file.open(QIODevice::ReadOnly));
        QCOMPARE(file.readAll(), QByteArray("precious"));
        QCOMPARE(QDir(files_.path(QStringLiteral("."))).entryList({QStringLiteral("*.saving")}).size(), 0);
    }

    // Decoding that takes long does not hold up a cancelled render.
    void cancelledWhileDecoding()
    {
        const auto gate = GatedEngine::makeGate(false);
        TrackRenderer renderer(
            wav_, [gate](const QString &) { return std::make_unique<GatedEngine>(EngineOutput::Silent, gate); });
        renderer.addTrack(trackOf({TrackEvent::note(60, 0, 100)}), instrumentOf(files_.click()));
        QSignalSpy loading(&renderer, &TrackRenderer::loadingSample);
        QSignalSpy finished(&renderer, &TrackRenderer::renderFinished);
        const auto opener = qScopeGuard([&] { GatedEngine::open(gate); });
        renderer.render();
        QVERIFY(loading.wait());
        renderer.cancel();
        QVERIFY(finished.wait());
        QVERIFY(!QFile::exists(wav_));
    }
};

QTEST_GUILESS_MAIN(TestTrackRenderer)
#include "test_track_renderer.moc"
