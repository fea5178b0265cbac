#include "audio/RenderWorker.h"

#include "audio/Failure.h"
#include "base/Interrupted.h"
#include "base/SafeFile.h"

#include <QThread>

#include <variant>

namespace {

constexpr int sampleRate = 48000;
constexpr DspClock longestSong = DspClock(6) * 60 * 60 * sampleRate;

} // namespace

RenderWorker::RenderWorker(const QString &fileName, FileEngineFactory makeEngine, std::size_t cores,
                           const std::stop_token &stop)
    : fileName_(fileName), makeEngine_(std::move(makeEngine)), stop_(stop),
      jobs_(cores, [stop] { throwIfStopped(stop); })
{
}

void RenderWorker::addTrack(const Track &track, const Instrument &instrument, GroupLevel level)
{
    tracks_.push_back({TrackPlayback(track, instrument, sampleRate, 0), level});
}

void RenderWorker::__render()
{
    if (QThread::currentThread() != thread())
        qFatal("RenderWorker: rendering outside the worker's thread");
    try {
        const auto failure = failureOf([this] { renderFile(); });
        if (!failure.isEmpty())
            emit renderFailed(failure);
    } catch (const Interrupted &) {
        emit renderCancelled();
    }
    deleteLater();
    emit renderFinished();
}

void RenderWorker::renderFile()
{
    if (tracks_.size() >= maxGroups)
        throw QStringLiteral("There are more than %1 tracks.").arg(maxGroups - 1);
    for (const auto &track : tracks_)
        refuseOverlong(track.playback.lastEventClock());
    SafeFile::Replacement file(fileName_);
    engine_ = makeEngine_(file.path());
    const auto tellLoading = [this](const QString &path) { emit loadingSample(path); };
    samples_ = std::make_unique<SampleCache>(*engine_, sampleRate, tellLoading);
    std::vector<TrackPlayback> playbacks;
    for (const auto &track : tracks_)
        playbacks.push_back(track.playback);
    samples_->prepare(playbacks, jobs_);
    RenderTimeline timeline(tracks_, *samples_, stop_);
    refuseOverlong(timeline.end());

    require(engine_->initialize());
    try {
        writeTimeline(timeline);
    } catch (...) {
        engine_->release(); // the file can be removed only when it is closed
        throw;
    }
    require(engine_->release());
    file.commit();
}

void RenderWorker::refuseOverlong(DspClock end) const
{
    if (end > longestSong)
        throw QStringLiteral("The song is longer than 6 hours.");
}

// What an engine that renders sees of the worker.
class RenderWorker::Host : public RenderHost
{
public:
    explicit Host(RenderWorker &worker)
        : worker_(worker), progress_(worker.tracks_, [&worker](quint64 current, quint64 total) {
              emit worker.renderProgress(current, total);
          })
    {
    }

    void passBlock(DspClock clock) override
    {
        throwIfStopped(worker_.stop_);
        progress_.passBlock(clock);
    }
    void report(AudioResult failure) override { worker_.checker_.check(*worker_.engine_, failure); }
    std::size_t cores() const override { return worker_.jobs_.cores(); }
    void run(const std::function<std::optional<RenderJob>()> &nextJob) override
    {
        worker_.jobs_.run<std::monostate>([&nextJob]() -> std::optional<Job<std::monostate>> {
            const auto job = nextJob();
            if (!job)
                return std::nullopt;
            const auto work = [work = job->work] { return work(), std::monostate(); };
            return Job<std::monostate>{work, [take = job->take](std::monostate) { take(); }};
        });
    }

private:
    RenderWorker &worker_;
    RenderProgress progress_;
};

void RenderWorker::writeTimeline(RenderTimeline &timeline)
{
    Host host(*this);
    require(engine_->render(timeline, host));
}

void RenderWorker::require(AudioResult result)
{
    if (!checker_.check(*engine_, result))
        throw QString::fromUtf8(engine_->errorText(result));
}
