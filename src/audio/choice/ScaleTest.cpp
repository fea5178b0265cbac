#include "audio/choice/ScaleTest.h"

#include "base/Interrupted.h"

#include <QScopeGuard>
#include <QString>

#include <cmath>
#include <numbers>
#include <thread>

namespace {

constexpr int semitones[] = {0, 2, 4, 5, 7, 9, 11, 12};

void require(const AudioEngine &engine, AudioResult result)
{
    if (result != AudioResult::Ok)
        throw QStringLiteral("%1 Error: %2")
            .arg(QString::fromUtf8(engine.name()), QString::fromUtf8(engine.errorText(result)));
}

// A middle C with some overtones.
Sound tone(int sampleRate)
{
    auto sound = std::make_shared<SoundData>(1, std::size_t(sampleRate), sampleRate);
    for (int i = 0; i < sampleRate; ++i) {
        const double phase = 2 * std::numbers::pi * 261.6 * i / sampleRate;
        sound->plane(0)[i] = float(0.3 * std::sin(phase) + 0.1 * std::sin(2 * phase) + 0.05 * std::sin(3 * phase));
    }
    return sound;
}

void schedule(AudioEngine &engine)
{
    const auto quarter = DspClock(engine.sampleRate()) / 4;
    const auto sound = tone(engine.sampleRate());
    auto start = engine.clock() + quarter / 2;
    for (const int semitone : semitones) {
        VoiceId voice{};
        require(engine, engine.play({sound, masterGroup, start, start + quarter / 2, start + quarter, 1,
                                     std::pow(2.0, semitone / 12.0)},
                                    voice));
        start += quarter;
    }
}

} // namespace

void playScale(AudioEngine &engine, const std::stop_token &stop)
{
    using namespace std::chrono_literals;
    require(engine, engine.initialize());
    const auto released = qScopeGuard([&engine] { engine.release(); });
    schedule(engine);
    const auto latestEnd = std::chrono::steady_clock::now() + 10s;
    while (engine.playingVoices() > 0 && std::chrono::steady_clock::now() < latestEnd) {
        throwIfStopped(stop);
        require(engine, engine.update());
        std::this_thread::sleep_for(5ms);
    }
}
