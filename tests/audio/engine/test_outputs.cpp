// The outputs: a wave file, a device that is missing, fails and comes back, and the clock that stands in for it.
#include "audio/WaveFile.h"
#include "audio/engine/BuiltinEngine.h"
#include "audio/engine/SoundDevices.h"
#include "audio/engine/UnderrunWatch.h"
#include "audio/sound/Signals.h"
#include "support/Rows.h"
#include "support/TestFolder.h"

#include <csignal>
#include <fcntl.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {

// A sound device that writes to a pipe, for which it waits.
class StuckServer
{
public:
    explicit StuckServer(std::string path) : path_(std::move(path))
    {
        std::signal(SIGPIPE, SIG_IGN);
        if (mkfifo(path_.c_str(), 0600) != 0)
            qFatal("cannot make a pipe");
        qputenv("SDL_AUDIODRIVER", "disk");
        qputenv("SDL_DISKAUDIOFILE", path_.c_str());
    }
    StuckServer(const StuckServer &) = delete;
    StuckServer &operator=(const StuckServer &) = delete;
    ~StuckServer()
    {
        answer();
        drain();
        close(pipe_);
        qunsetenv("SDL_DISKAUDIOFILE");
    }

    void answer() const
    {
        if (pipe_ < 0)
            pipe_ = open(path_.c_str(), O_RDONLY | O_NONBLOCK);
    }
    // Takes what is there.
    void drain() const
    {
        char bytes[4096];
        while (read(pipe_, bytes, sizeof bytes) > 0)
            ;
    }

private:
    std::string path_;
    mutable int pipe_ = -1;
};

} // namespace

class TestOutputs : public QObject
{
    Q_OBJECT

private slots:
    void waveFile()
    {
        BuiltinEngine engine(EngineOutput::WavFile, path("song.wav"));
        QCOMPARE(engine.initialize(), AudioResult::Ok);
        QVERIFY(waveAt("song.wav").left.empty());
        auto sound = std::make_shared<SoundData>(2, 700, 48000);
        const float levels[] = {0.5F, -0.5F, 1.0F, -1.0F, 3.0F, -3.0F, 0.25F / 32768, 0.75F / 32768, 1.0F / 32768};
        std::copy(std::begin(levels), std::end(levels), sound->plane(0) + 510);
        VoiceId voice{};
        QCOMPARE(engine.play({sound}, voice), AudioResult::Ok);
        while (engine.playingVoices() > 0)
            QCOMPARE(engine.update(), AudioResult::Ok);
        QCOMPARE(engine.release(), AudioResult::Ok);
        const auto samples = waveAt("song.wav").left;
        QCOMPARE(samples.size(), std::size_t(1024));
        const short expected[] = {16384, -16384, 32767, -32768, 32767, -32768, 0, 1, 1, 0};
        for (std::size_t i = 0; i < std::size(expected); ++i)
            QCOMPARE(samples[510 + i], expected[i]);
    }

    void waveFileThatCannotBeWritten()
    {
        BuiltinEngine nowhere(EngineOutput::WavFile, path("no such directory/song.wav"));
        QCOMPARE(nowhere.initialize(), AudioResult::CannotWrite);
        QCOMPARE(nowhere.update(), AudioResult::NotInitialized);

        BuiltinEngine full(EngineOutput::WavFile, "/dev/full");
        QCOMPARE(full.initialize(), AudioResult::CannotWrite);

        // A disk that fills up on the way: no file may grow beyond some bytes.
        std::signal(SIGXFSZ, SIG_IGN);
        rlimit limit{};
        getrlimit(RLIMIT_FSIZE, &limit);
        const rlimit small{20000, limit.rlim_max};
        BuiltinEngine filling(EngineOutput::WavFile, path("filling.wav"));
        QCOMPARE(filling.initialize(), AudioResult::Ok);
        setrlimit(RLIMIT_FSIZE, &small);
        auto result = AudioResult::Ok;
        for (int i = 0; i < 100 && result == AudioResult::Ok; ++i)
            result = filling.update();
        QCOMPARE(result, AudioResult::CannotWrite);
        QCOMPARE(filling.release(), AudioResult::CannotWrite);
        setrlimit(RLIMIT_FSIZE, &limit);
    }

    void pacedClockKeepsTime()
    {
        BuiltinEngine engine(HeardOutput::Paced);
        QCOMPARE(engine.initialize(), AudioResult::Ok);
        QElapsedTimer timer;
        timer.start();
        const auto before = engine.clock();
        QTRY_VERIFY(engine.clock() > before + 20'000);
        const auto mixed = double(engine.clock() - before);
        QVERIFY(mixed <= 48e-6 * double(timer.nsecsElapsed()) + 5 * 512); // four blocks are mixed ahead
    }

    void restsAndWakes_data()
    {
        const Rows<int> row("output");
        row("paced", int(HeardOutput::Paced));
        row("device", int(HeardOutput::Device));
    }

    void restsAndWakes()
    {
        QFETCH(int, output);
        qputenv("SDL_AUDIODRIVER", "dummy");
        BuiltinEngine engine{HeardOutput(output)};
        QCOMPARE(engine.initialize(), AudioResult::Ok);
        QTRY_VERIFY(engine.clock() > 5000);
        engine.rest();
        const auto clock = engine.clock();
        QTest::qWait(100);
        QCOMPARE(engine.clock(), clock);
        QCOMPARE(engine.update(), AudioResult::Ok);
        QCOMPARE(engine.outputState(), OutputState::Running);
        engine.wake();
        QTRY_VERIFY(engine.clock() > clock + 5000);
        QCOMPARE(engine.outputState(), OutputState::Running);
    }

    void underrunsAreSeen_data()
    {
        const Rows<QString, int> row("waits", "underruns"); // ms between the asks for a buffer of 40 ms
        row("steady", QStringLiteral("40 40 40 40 40 40 40 40"), 0);
        row("filled first", QStringLiteral("0 0 0 40 40 40 40 40 40"), 0);
        row("uneven", QStringLiteral("58 22 40 58 22 58 22 40 40"), 0);
        row("late and caught up", QStringLiteral("40 95 0 25 40 40 40 40 40 40"), 0);
        row("dry once", QStringLiteral("40 75 40 40 40 40 40 40 40"), 1);
        row("dry twice", QStringLiteral("40 90 40 40 40 40 90 40 40 40 40 40"), 2);
        row("slow clock", QStringLiteral("40.2 ").repeated(5000), 0);
    }

    void underrunsAreSeen()
    {
        QFETCH(QString, waits);
        QFETCH(int, underruns);
        using Time = UnderrunWatch::Clock::time_point;
        UnderrunWatch watch;
        double milliseconds = 1000;
        int seen = 0;
        for (const auto &wait : waits.split(u' ')) {
            milliseconds += wait.toDouble();
            const std::chrono::microseconds time(std::int64_t(1000 * milliseconds));
            seen += watch.ask(Time(time), std::chrono::milliseconds(40)) ? 1 : 0;
        }
        QCOMPARE(seen, underruns);
    }

    void deviceMissingAndFound()
    {
        qputenv("SDL_AUDIODRIVER", "none of them");
        BuiltinEngine engine(HeardOutput::Device, std::make_shared<OutputControl>(), searchInterval);
        QCOMPARE(engine.initialize(), AudioResult::NoDevice);
        QCOMPARE(engine.outputState(), OutputState::NoDevice);
        QTRY_VERIFY(engine.clock() > 5000); // playback runs on
        engine.rest();
        engine.wake(); // there is none yet to open at once
        QCOMPARE(engine.outputState(), OutputState::NoDevice);
        qputenv("SDL_AUDIODRIVER", "dummy");
        QTRY_VERIFY_WITH_TIMEOUT(engine.update() == AudioResult::Ok && engine.outputState() == OutputState::Running,
                                 10000);
        // The device alone drives the clock, and is itself again after a rest.
        QElapsedTimer timer;
        timer.start();
        const auto clock = engine.clock();
        QTRY_VERIFY(engine.clock() > clock + 20'000);
        QVERIFY(double(engine.clock() - clock) <= 48e-6 * double(timer.nsecsElapsed()) + 4 * 2048);
        engine.rest();
        const auto rested = engine.clock();
        QTest::qWait(100);
        QCOMPARE(engine.clock(), rested);
        engine.wake();
        QCOMPARE(engine.outputState(), OutputState::Running);
        QTRY_VERIFY(engine.clock() > rested + 5000);
    }

    // One that is not there is replaced by the default; a new choice is taken up while it plays, and after a rest.
    void deviceIsChosen()
    {
        qputenv("SDL_AUDIODRIVER", "dummy");
        const auto names = findSoundDevices().get();
        QVERIFY(!names.empty());
        const auto control = std::make_shared<OutputControl>();
        control->choose({"a device that is gone", 1000});
        BuiltinEngine engine(HeardOutput::Device, control);
        QCOMPARE(engine.initialize(), AudioResult::Ok);
        QCOMPARE(control->figures().missing, std::string("a device that is gone"));
        const auto framesNow = [&] { return control->figures().latency * engine.sampleRate() / 1000; };
        QCOMPARE(framesNow(), 512.0);
        QTRY_VERIFY(engine.clock() > 5000);

        control->choose({names.front(), 4096});
        QTRY_VERIFY(engine.update() == AudioResult::Ok && framesNow() == 4096.0);
        QVERIFY(control->figures().missing.empty());
        const auto clock = engine.clock();
        QVERIFY(clock > 5000);
        engine.rest();
        control->choose({});
        engine.wake();
        QCOMPARE(framesNow(), 2048.0);
        QTRY_VERIFY(engine.clock() > clock + 5000);
    }

    // A device that runs dry gets longer blocks; the clock runs on meanwhile.
    void queueGrows()
    {
        qputenv("SDL_AUDIODRIVER", "disk");
        qputenv("SDL_DISKAUDIOFILE", "/dev/null");
        qputenv("SDL_DISKAUDIODELAY", "110"); // ms between blocks of 43 ms, later 85 ms
        const auto control = std::make_shared<OutputControl>();
        BuiltinEngine engine(HeardOutput::Device, control, searchInterval);
        QCOMPARE(engine.initialize(), AudioResult::Ok);
        const auto longestStep = [&] {
            std::uint64_t longest = 0;
            auto last = engine.clock();
            for (int i = 0; i < 250; ++i) {
                QTest::qSleep(1);
                const auto now = engine.clock();
                longest = std::max(longest, now - std::exchange(last, now));
            }
            return longest;
        };
        QVERIFY(longestStep() <= 2048);
        QTRY_VERIFY(engine.update() == AudioResult::Ok && control->figures().underruns > 0);
        QTRY_VERIFY_WITH_TIMEOUT(engine.update() == AudioResult::Ok && longestStep() > 2048, 10000);
        QCOMPARE(engine.outputState(), OutputState::Running);
        qunsetenv("SDL_DISKAUDIODELAY");
    }

    // A server that does not let itself be opened: a pipe that nobody reads. It takes over when it does.
    void serverDoesNotAnswer()
    {
        const StuckServer server(path("never opened"));
        QElapsedTimer timer;
        timer.start();
        {
            BuiltinEngine engine(HeardOutput::Device, std::make_shared<OutputControl>(), searchInterval);
            QCOMPARE(engine.initialize(), AudioResult::DeviceNotAnswering);
            QCOMPARE(engine.outputState(), OutputState::NotAnswering);
            QVERIFY(timer.elapsed() < 1000);
            QTRY_VERIFY(engine.clock() > 5000); // playback runs on
            server.answer();
            QTRY_VERIFY(engine.update() == AudioResult::Ok && engine.outputState() == OutputState::Running);
            const auto clock = engine.clock();
            QTRY_VERIFY((server.drain(), engine.clock() > clock + 20'000));
        }
        server.drain();
    }

    // A server that stops in the midst of playing: the pipe is full.
    void serverStops()
    {
        const StuckServer server(path("full"));
        server.answer();
        auto engine =
            std::make_unique<BuiltinEngine>(HeardOutput::Device, std::make_shared<OutputControl>(), searchInterval);
        QCOMPARE(engine->initialize(), AudioResult::Ok);
        QElapsedTimer timer;
        timer.start();
        bool isTold = false;
        QTRY_VERIFY(isTold = isTold || engine->update() == AudioResult::DeviceNotAnswering);
        QVERIFY(timer.elapsed() > 500 && timer.elapsed() < 2500);
        QCOMPARE(engine->outputState(), OutputState::NotAnswering);
        const auto clock = engine->clock();
        QTRY_VERIFY(engine->update() == AudioResult::Ok && engine->clock() > clock + 20'000);
        timer.restart();
        engine.reset();
        QVERIFY(timer.elapsed() < 1000);
    }

    // A device that writes to a full disk fails at its first block.
    void deviceLostAndFound()
    {
        qputenv("SDL_AUDIODRIVER", "disk");
        qputenv("SDL_DISKAUDIOFILE", "/dev/full");
        BuiltinEngine engine(HeardOutput::Device, std::make_shared<OutputControl>(), searchInterval);
        QCOMPARE(engine.initialize(), AudioResult::Ok);
        QCOMPARE(engine.outputState(), OutputState::Running);
        VoiceId voice{};
        QCOMPARE(engine.play({constantSound(2, 480000, 0.5F)}, voice), AudioResult::Ok);
        const auto rate = engine.sampleRate();
        bool lost = false;
        QTRY_VERIFY(lost = lost || engine.update() == AudioResult::DeviceLost);
        QCOMPARE(engine.outputState(), OutputState::NoDevice);
        QCOMPARE(engine.update(), AudioResult::Ok);

        const auto heard = path("heard.raw");
        qputenv("SDL_DISKAUDIOFILE", heard.c_str());
        QTRY_VERIFY_WITH_TIMEOUT(engine.update() == AudioResult::Ok && engine.outputState() == OutputState::Running,
                                 10000);
        const auto clock = engine.clock();
        QTRY_VERIFY(engine.clock() > clock + 20000);
        QCOMPARE(engine.sampleRate(), rate);
        QCOMPARE(engine.release(), AudioResult::Ok);
        const auto half = QByteArray::fromRawData("\0\0\0\x3f\0\0\0\x3f", 8);
        QVERIFY(folder_.read("heard.raw").contains(half)); // the voice plays on
    }

private:
    static constexpr std::chrono::milliseconds searchInterval{50};

    std::string path(const char *name) const { return folder_.path(name).toStdString(); }

    WaveFile waveAt(const char *name) const
    {
        const WaveFile wave(folder_.path(name));
        if (!wave.isValid)
            qFatal("not the wave file that was promised");
        return wave;
    }

    const TestFolder folder_;
};

QTEST_GUILESS_MAIN(TestOutputs)
#include "test_outputs.moc"
