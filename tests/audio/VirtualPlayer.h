#pragma once

#include "audio/engine/BuiltinEngine.h"
#include "audio/player/PlayerWorker.h"

#include <QStringList>

#include <vector>

// "one, two" as a list.
inline QStringList list(const char *lines)
{
    return QString::fromLatin1(lines).split(QStringLiteral(", "));
}

// A worker on the test's own thread whose engine mixes one block in each pass: nothing happens between passes, samples
// are loaded in them, and the test sees every sample.
class VirtualPlayer
{
public:
    explicit VirtualPlayer(bool initialized = true)
    {
        record();
        if (initialized)
            worker.initialize();
    }
    ~VirtualPlayer() { worker.terminate(); }

    void passes(int count)
    {
        for (int i = 0; i < count; ++i) {
            worker.update();
            const auto block = engine->lastBlock();
            for (std::size_t frame = 0; keepsAudio && frame < block.size() / 2; ++frame)
                left.push_back(block[2 * frame]);
        }
    }
    void play(DspClock frames) { passes(int((frames + 511) / 512)); }

    // Where the left side is not silent.
    std::vector<DspClock> onsets() const
    {
        std::vector<DspClock> found;
        for (DspClock clock = 0; clock < left.size(); ++clock) {
            if (left[clock] != 0)
                found.push_back(clock);
        }
        return found;
    }

    int count(const char *line) const { return int(told.count(QString::fromLatin1(line))); }
    QStringList toldOf(const char *part) const { return told.filter(QString::fromLatin1(part)); }

    BuiltinEngine *engine = nullptr;
    PlayerWorker worker{[this] {
                            auto made = std::make_unique<BuiltinEngine>(EngineOutput::Silent);
                            engine = made.get();
                            return made;
                        },
                        [this] { return engine != nullptr ? qint64(engine->clock() * 1000 / 48000) : 0; }, 0};
    std::vector<float> left;
    bool keepsAudio = true;
    QStringList told; // signals in the order in which they came, without meters and positions
    QStringList toldWithMeters;
    quint64 position = 0;

private:
    void tell(const QString &line)
    {
        told.append(line);
        toldWithMeters.append(line);
    }
    void record();
};

inline void VirtualPlayer::record()
{
    using Worker = PlayerWorker;
    const auto on = [this](auto signal, auto slot) { QObject::connect(&worker, signal, &worker, slot); };
    on(&Worker::trackStarted, [this](const QString &id) { tell(QStringLiteral("started ") + id); });
    on(&Worker::trackStopped, [this](const QString &id) { tell(QStringLiteral("stopped ") + id); });
    on(&Worker::allTracksStopped, [this] { tell(QStringLiteral("all stopped")); });
    on(&Worker::loadingSample,
       [this](const QString &path) { tell(QStringLiteral("loading ") + path.section(u'/', -1)); });
    on(&Worker::notePressed,
       [this](const QString &id, int index) { tell(QStringLiteral("pressed %1 %2").arg(id).arg(index)); });
    on(&Worker::noteReleased,
       [this](const QString &id, int index) { tell(QStringLiteral("released %1 %2").arg(id).arg(index)); });
    on(&Worker::outputChanged, [this](const QString &problem) { tell(QStringLiteral("output ") + problem); });
    on(&Worker::masterMeter, [this] { toldWithMeters.append(QStringLiteral("master")); });
    on(&Worker::trackMeter, [this](const QString &id) { toldWithMeters.append(QStringLiteral("meter ") + id); });
    on(&Worker::trackPositionChanged, [this](const QString &id, quint64 tick) {
        toldWithMeters.append(QStringLiteral("position ") + id);
        position = tick;
    });
}
