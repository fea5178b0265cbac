// What a player does when its engine fails, loses its device or has nothing to do.
#include "LoggedLines.h"
#include "SampleFiles.h"
#include "audio/PlayerWorker.h"
#include "audio/engine/BuiltinEngine.h"

#include <QSignalSpy>
#include <QtTest>

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
