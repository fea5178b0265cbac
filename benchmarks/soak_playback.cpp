// Playback in real time on a machine whose cores are all busy with something else: a minute of dense music through the
// player on the paced output, while a thread spins on every core. Fails when the output ran dry, or a note came too
// late and was dropped. Usage: soak_playback [SECONDS]
#include "audio/SampleFiles.h"
#include "audio/engine/BuiltinEngine.h"
#include "audio/player/TrackPlayer.h"
#include "support/Figures.h"

#include <QCoreApplication>

#include <atomic>
#include <chrono>
#include <cmath>
#include <cstdio>
#include <numbers>
#include <thread>
#include <vector>

namespace {

constexpr int tracks = 16;

// Four bars of sound that die away, at every fourth key.
Instrument instrument(const SampleFiles &files)
{
    Instrument made;
    made.tuning.fadeout = 0.3;
    for (quint32 root = 21; root <= 108; root += 4) {
        QVector<qint16> samples;
        const double step = 2 * std::numbers::pi * 440 * std::exp2((double(root) - 69) / 12) / 48000;
        for (int i = 0; i < 3 * 48000; ++i)
            samples.append(qint16(8000 * std::sin(step * i) * std::exp(-i / 48000.0)));
        const auto file = files.write(QStringLiteral("%1.wav").arg(root), waveBytes(samples));
        for (quint32 key = root; key < root + 4; ++key)
            made.tuning.notes.insert(key, {{file}, std::exp2((double(key) - double(root)) / 12), 440});
    }
    return made;
}

// A note of half a second every sixteenth of one: eight sound at once.
Track melody(int number, int seconds)
{
    constexpr Ticks second = defaultTicksPerMinute / 60;
    QVector<TrackEvent> events;
    for (int i = 0; i < 16 * seconds; ++i)
        events.append(TrackEvent::note(quint32(30 + (i * 7 + number * 11) % 70), i * second / 16, second / 2, 0.05F));
    return trackOf(events);
}

// Notes how long the player left the engine alone: after 100 ms, notes come too late.
class WatchedEngine : public BuiltinEngine
{
public:
    WatchedEngine() : BuiltinEngine(HeardOutput::Paced) {}

    AudioResult update() override
    {
        const auto now = Clock::now();
        if (lastUpdate_ != Clock::time_point())
            longestPause = std::max<std::int64_t>(longestPause, (now - lastUpdate_) / std::chrono::milliseconds(1));
        lastUpdate_ = now;
        return BuiltinEngine::update();
    }

    std::atomic<std::int64_t> longestPause = 0; // ms

private:
    using Clock = std::chrono::steady_clock;

    Clock::time_point lastUpdate_;
};

class Soak
{
public:
    explicit Soak(int seconds) : seconds_(seconds)
    {
        QObject::connect(&player_, &TrackPlayer::notePressed, &player_, [this] { ++pressed_; });
        QObject::connect(&player_, &TrackPlayer::trackPositionChanged, &player_, [this] { ++positions_; });
    }

    // Whether nothing was missed.
    bool run()
    {
        const SampleFiles files;
        const auto sounding = instrument(files);
        QVector<PlayRequest> requests;
        for (int i = 0; i < tracks; ++i)
            requests.append({.trackId = QString::number(i),
                             .track = melody(i, seconds_),
                             .instrument = sounding,
                             .syncGroup = QStringLiteral("Main")});
        player_.playTracks(requests);
        bool isOver = false;
        QObject::connect(&player_, &TrackPlayer::trackStopped, &player_, [&isOver] { isOver = true; });
        while (!isOver)
            QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
        const auto underruns = engine_.load()->underruns();
        std::printf("%d s, %d tracks: %llu underruns; %d of %d notes; %d positions; %lld ms at most between passes\n",
                    seconds_, tracks, static_cast<unsigned long long>(underruns), pressed_, expected(), positions_,
                    static_cast<long long>(engine_.load()->longestPause));
        const auto missed = double(underruns) + double(expected() - pressed_);
        return report({"Playback on busy cores: underruns and missed notes", missed, 0, {}, Better::Less});
    }

private:
    int expected() const { return tracks * 16 * seconds_; }

    int seconds_;
    int pressed_ = 0;
    int positions_ = 0;
    std::atomic<WatchedEngine *> engine_ = nullptr;
    TrackPlayer player_{[this] {
        auto engine = std::make_unique<WatchedEngine>();
        engine_ = engine.get();
        return engine;
    }};
};

} // namespace

int main(int argc, char **argv)
{
    const QCoreApplication application(argc, argv);
    const int seconds = argc > 1 ? QByteArray(argv[1]).toInt() : 60;
    if (seconds <= 0) {
        std::fputs("usage: soak_playback [SECONDS]\n", stderr);
        return 2;
    }
    std::atomic<bool> isOver = false;
    std::vector<std::jthread> spinning;
    for (unsigned core = 0; core < std::max(1U, std::thread::hardware_concurrency()); ++core) {
        spinning.emplace_back([&isOver] {
            while (!isOver)
                ;
        });
    }
    const bool isGood = Soak(seconds).run();
    isOver = true;
    return isGood ? 0 : 1;
}
