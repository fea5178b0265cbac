// The owner's thread against the mixer's, for ThreadSanitizer to watch.
#include "audio/engine/BuiltinEngine.h"
#include "audio/engine/OfflineMix.h"
#include "audio/engine/SpscRing.h"
#include "audio/sound/Resampler.h"
#include "audio/sound/Signals.h"

#include <QtTest>

#include <thread>

class TestEngineThreads : public QObject
{
    Q_OBJECT

private slots:
    void ringKeepsOrder()
    {
        SpscRing<int, 8> ring;
        constexpr int items = 5000;
        std::thread writer([&ring] {
            for (int i = 0; i < items;)
                if (ring.push(i))
                    ++i;
                else
                    std::this_thread::yield();
        });
        bool inOrder = true;
        for (int expected = 0, item = 0; expected < items;) {
            if (!ring.pop(item)) {
                std::this_thread::yield();
                continue;
            }
            inOrder = inOrder && item == expected;
            ++expected;
        }
        writer.join();
        QVERIFY(inOrder);
    }

    // Half a second of everything an owner may do, in random order.
    void randomCommands()
    {
        BuiltinEngine engine(HeardOutput::Paced);
        QCOMPARE(engine.initialize(), AudioResult::Ok);
        std::minstd_rand random(1);
        std::vector<GroupId> groups{masterGroup};
        std::vector<VoiceId> voices{VoiceId{}};
        const auto anyOf = [&random](const auto &list) { return list[random() % list.size()]; };
        const auto sometimesNew = [&random] { return noiseSound(1 + int(random() % 2), random() % 9000, 1); };
        Sound sound = sometimesNew();
        std::size_t played = 0;
        const auto end = std::chrono::steady_clock::now() + std::chrono::milliseconds(500);
        while (std::chrono::steady_clock::now() < end) {
            const auto start = engine.clock() + random() % 5000;
            VoiceId voice{};
            GroupId group{};
            const std::function<void()> commands[] = {
                [&] { sound = sometimesNew(); },
                [&] {
                    if (engine.createGroup(group) == AudioResult::Ok)
                        groups.push_back(group);
                },
                [&] { engine.releaseGroup(anyOf(groups)); },
                [&] { engine.stopGroup(anyOf(groups)); },
                [&] {
                    engine.setGroupLevel(anyOf(groups), {float(random() % 100) / 100, float(random() % 3) - 1});
                },
                [&] { engine.groupMeter(anyOf(groups)); },
                [&] { engine.fadeOut(anyOf(voices), random() % 2000); },
                [&] {
                    QCOMPARE(engine.update(), AudioResult::Ok);
                    std::this_thread::sleep_for(std::chrono::microseconds(300));
                }};
            const auto choice = random() % 12;
            if (choice < std::size(commands)) {
                commands[choice]();
            } else if (engine.play({sound, anyOf(groups), start, start + 1000, start + 2000, 0.1F,
                                    random() % 2 ? 1.0 : 0.5 + double(random() % 100) / 50},
                                   voice) == AudioResult::Ok) {
                voices.push_back(voice);
                ++played;
            }
        }
        QVERIFY(played > 100);
        // All of it ends: no voice and no sound is lost on the way.
        std::weak_ptr<const SoundData> watched = sound;
        sound.reset();
        QTRY_VERIFY(engine.update() == AudioResult::Ok && engine.playingVoices() == 0);
        QVERIFY(watched.expired());
        QTRY_VERIFY(engine.clock() > 10000);
    }

    void servicesFromAllThreads()
    {
        Resampler resampler;
        const auto source = noiseSound(2, 4000, 1);
        std::vector<std::thread> threads;
        std::vector<std::vector<float>> results(4, std::vector<float>(2 * 3000));
        for (auto &result : results) {
            threads.emplace_back([&] {
                Sound sound;
                resampler.resample(*source, 1.3, 3000, sound);
                mixOffline({{{}}, {{sound}, {source, masterGroup, 10, never, never, 1, 1.7}}}, 0, result);
            });
        }
        for (auto &thread : threads)
            thread.join();
        for (const auto &result : results)
            QVERIFY(result == results[0] && result[1000] != 0.0F);
    }
};

QTEST_GUILESS_MAIN(TestEngineThreads)
#include "test_engine_threads.moc"
