// What a player does when its engine fails, loses its device or has nothing to do.
#include "LoggedLines.h"
#include "SampleFiles.h"
#include "audio/engine/BuiltinEngine.h"
#include "audio/player/PlayerWorker.h"
#include "support/Rows.h"

#include <QSignalSpy>
#include <QtTest>

#include <algorithm>
#include <atomic>
#include <cmath>

namespace {

Track clicks(int count)
{
    QVector<TrackEvent> events;
    for (int i = 0; i < count; ++i)
        events.append(TrackEvent::note(60, i * ticksPerQuarter, ticksPerQuarter / 2));
    return trackOf(events);
}

} // namespace

class TestPlayerEngine : public QObject
{
    Q_OBJECT

    const SampleFiles files_;
    const Instrument click_ = instrumentOf(files_.click());

private slots:
    void exceptionsEndAtTheSlot()
    {
        class FailingEngine : public BuiltinEngine
        {
        public:
            FailingEngine() : BuiltinEngine(EngineOutput::Silent) {}
            AudioResult makeSound(std::span<const std::byte>, std::size_t, Sound &) const override
            {
                throw std::bad_alloc();
            }
        };
        const LoggedLines logged;
        PlayerWorker worker([] { return std::make_unique<FailingEngine>(); }, steadyMilliseconds, 0);
        worker.initialize();
        worker.precacheInstrument(click_, clicks(1));
        worker.update();
        worker.playPreviewNote(click_, 60);
        QCOMPARE(logged.count("Not enough memory."), 1);
        worker.terminate();

        PlayerWorker engineless([]() -> std::unique_ptr<AudioEngine> { throw QStringLiteral("no engine today"); });
        engineless.initialize();
        engineless.playTrack({QStringLiteral("a"), clicks(1), click_});
        engineless.update();
        QCOMPARE(logged.count("no engine today"), 1);
        const QSignalSpy finished(&engineless, &PlayerWorker::finished);
        engineless.terminate();
        QCOMPARE(finished.size(), 1);
    }

    void aLostDeviceIsTold()
    {
        class UnpluggedEngine : public BuiltinEngine
        {
        public:
            UnpluggedEngine() : BuiltinEngine(EngineOutput::Silent) {}
            OutputState outputState() const override { return state; }
            AudioResult update() override
            {
                BuiltinEngine::update();
                return std::exchange(next, AudioResult::Ok);
            }
            OutputState state = OutputState::Running;
            AudioResult next = AudioResult::Ok;
        };
        UnpluggedEngine *engine = nullptr;
        const LoggedLines logged;
        PlayerWorker worker([&engine] {
            auto made = std::make_unique<UnpluggedEngine>();
            engine = made.get();
            return made;
        });
        QStringList problems;
        connect(&worker, &PlayerWorker::outputChanged, this, [&](const QString &text) { problems.append(text); });
        worker.initialize();
        worker.update();
        engine->state = OutputState::NoDevice;
        engine->next = AudioResult::DeviceLost;
        worker.update();
        worker.update();
        engine->state = OutputState::Running;
        worker.update();
        QCOMPARE(problems, QStringList({QStringLiteral("There is no sound device."), QString()}));
        QCOMPARE(logged.count("Audio Error: The sound device was lost.\n"), 1);
        worker.terminate();
    }

    // A sample that comes a second too late is heard from where it would be; one that does not come is told.
    void lateSamples_data()
    {
        const Rows<bool> row("comes");
        row("late", true);
        row("never", false);
    }

    void lateSamples()
    {
        QFETCH(bool, comes);
        class SlowEngine : public BuiltinEngine
        {
        public:
            explicit SlowEngine(std::atomic<bool> &gate) : BuiltinEngine(EngineOutput::Silent), gate_(gate) {}
            AudioResult makeSound(std::span<const std::byte> file, std::size_t mostFrames, Sound &sound) const override
            {
                if (file.size() > 10'000)
                    gate_.wait(false);
                return BuiltinEngine::makeSound(file, mostFrames, sound);
            }

        private:
            std::atomic<bool> &gate_;
        };
        std::atomic<bool> gate = false;
        const auto open = [&gate] {
            gate = true;
            gate.notify_all();
        };
        const auto opener = qScopeGuard(open); // also when the test fails
        SlowEngine *engine = nullptr;
        PlayerWorker worker(
            [&] {
                auto made = std::make_unique<SlowEngine>(gate);
                engine = made.get();
                return made;
            },
            steadyMilliseconds, 1);
        QVector<DspClock> pressed;
        QStringList warnings;
        connect(&worker, &PlayerWorker::notePressed, this, [&] { pressed.append(engine->clock()); });
        connect(&worker, &PlayerWorker::warned, this, [&](const QString &text) { warnings.append(text); });
        worker.initialize();
        QVector<qint16> ramp(200'000);
        for (int i = 0; i < ramp.size(); ++i)
            ramp[i] = qint16(i % 30'000 + 1);
        auto instrument = click_;
        instrument.tuning.notes[61].files = QStringList(files_.write(QStringLiteral("ramp.wav"), waveBytes(ramp)));
        constexpr Ticks quarter = ticksPerQuarter; // 24000 samples
        worker.playTrack({QStringLiteral("a"),
                          trackOf({TrackEvent::note(60, 0, quarter), TrackEvent::note(61, 3 * quarter, 6 * quarter)}),
                          instrument});
        std::vector<float> left;
        const auto passesUntil = [&](const auto &isOver) {
            while (!isOver()) {
                worker.update();
                const auto block = engine->lastBlock();
                for (std::size_t i = 0; i < block.size(); i += 2)
                    left.push_back(block[i]);
                if (left.size() > 100'000) // what is loaded takes real time
                    QTest::qSleep(1);
            }
        };
        passesUntil([&] { return std::ranges::any_of(left, [](float sample) { return sample != 0; }); });
        const auto click = std::ranges::find_if(left, [](float sample) { return sample != 0; }) - left.begin();
        const auto due = DspClock(click) + 3 * 24000, end = due + 6 * 24000;
        passesUntil([&] { return engine->clock() > due + 24000; });
        QCOMPARE(pressed.size(), 1);
        if (comes)
            open();
        passesUntil([&] { return engine->clock() > end + 1024; });
        QCOMPARE(pressed.size(), comes ? 2 : 1);
        QCOMPARE(warnings.size(), comes ? 0 : 1);
        const auto entered = comes ? pressed.last() : end;
        for (auto clock = DspClock(click) + 1; clock < entered; ++clock)
            QCOMPARE(left[clock], 0.0F);
        for (auto clock = entered + 240; clock < end; ++clock)
            QVERIFY(std::abs(left[clock] - float(ramp[int(clock - due)]) / 32768 * std::sqrt(0.5F)) < 1e-5F);
        open();
        worker.terminate();
    }

    void restsWhileNothingSounds()
    {
        class RestingEngine : public BuiltinEngine
        {
        public:
            explicit RestingEngine(QString &told) : BuiltinEngine(EngineOutput::Silent), told_(told) {}
            void rest() override { told_ += QStringLiteral("rest "); }
            void wake() override { told_ += QStringLiteral("wake "); }

        private:
            QString &told_;
        };
        QString told;
        qint64 time = 0;
        PlayerWorker worker([&told] { return std::make_unique<RestingEngine>(told); }, [&time] { return time; }, 0);
        const auto pass = [&](qint64 milliseconds, const char *part) {
            time += milliseconds;
            worker.update();
            told += QString::fromLatin1(part);
        };
        worker.initialize();
        pass(1990, "| ");
        pass(20, "| ");
        pass(1000, "| ");
        worker.playTrack({QStringLiteral("a"), clicks(100), click_, {}, QString(), true}); // muted is not idle
        pass(5000, "| ");
        worker.stopAll();
        pass(2010, "| ");
        worker.playPreviewNote(instrumentOf(files_.level(1000, 1500)), 60);
        for (int i = 0; i < 4; ++i)
            pass(1990, "");
        pass(0, "| ");
        worker.terminate();
        QCOMPARE(told, QStringLiteral("| rest | | wake | rest | wake rest | "));
    }

    // While something plays the engine stays; the new one knows what holds, and what is to be said of it is said once.
    void enginesAreRenewed()
    {
        class CountedEngine : public BuiltinEngine
        {
        public:
            CountedEngine(int number, QStringList &told)
                : BuiltinEngine(EngineOutput::Silent), number_(number), told_(told)
            {
            }
            AudioResult initialize() override
            {
                return number_ == 1 ? AudioResult::LibraryError : BuiltinEngine::initialize();
            }
            AudioResult setGroupLevel(GroupId group, GroupLevel level) override
            {
                if (group == masterGroup)
                    told_.append(QStringLiteral("%1: %2").arg(number_).arg(double(level.volume)));
                return BuiltinEngine::setGroupLevel(group, level);
            }

        private:
            int number_;
            QStringList &told_;
        };
        QStringList told;
        int engines = 0;
        const auto makeEngine = [&] {
            ++engines;
            return MadeEngine(std::make_unique<CountedEngine>(engines, told), QStringLiteral("no. %1").arg(engines));
        };
        PlayerWorker worker(makeEngine, steadyMilliseconds, 0);
        connect(&worker, &PlayerWorker::engineMade, this, [&](const QString &text) { told.append(text); });
        connect(&worker, &PlayerWorker::outputChanged, this, [&](const QString &text) { told.append(text); });
        const auto play = [&] { worker.playTrack({QStringLiteral("a"), clicks(1), click_}); };
        worker.initialize();
        worker.setMasterVolume(0.5F);
        play();
        worker.renewEngine();
        play();
        play();
        worker.renewEngine();
        play();
        QCOMPARE(engines, 2);
        worker.stopAll();
        play();
        QCOMPARE(told, QStringList({QStringLiteral("no. 1"), QStringLiteral("The sound library failed."),
                                    QStringLiteral("no. 2"), QString(), QStringLiteral("2: 0.5"),
                                    QStringLiteral("no. 3"), QStringLiteral("3: 0.5")}));
        worker.terminate();
    }

    void terminateMustComeFirst()
    {
        const LoggedLines logged;
        {
            PlayerWorker worker([] { return std::make_unique<BuiltinEngine>(EngineOutput::Silent); });
            worker.initialize();
        }
        QCOMPARE(logged.count("PlayerWorker::terminate() was not invoked before destruction!"), 1);
    }
};

QTEST_GUILESS_MAIN(TestPlayerEngine)
#include "test_player_engine.moc"
