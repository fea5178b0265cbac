#include "audio/RenderWorker.h"

#include "audio/Failure.h"
#include "base/SafeFile.h"

#include <QThread>

#include <algorithm>

namespace {

constexpr int sampleRate = 48000;
constexpr DspClock longestSong = DspClock(6) * 60 * 60 * sampleRate;

// The mixer is fastest with spans of some seconds; every core should still get several, and a cancelled one be soon
// over.
DspClock spanBlocks(DspClock songBlocks, std::size_t cores)
{
    return std::clamp<DspClock>(songBlocks / (4 * cores), 64, 1024);
}

} // namespace

RenderWorker::RenderWorker(const QString &fileName, FileEngineFactory makeEngine, std::size_t cores)
    : fileName_(fileName), makeEngine_(std::move(makeEngine)), jobs_(cores)
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
    RenderTimeline timeline(tracks_, *samples_);
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

void RenderWorker::writeTimeline(RenderTimeline &timeline)
{
    const auto blockFrames = engine_->blockFrames();
    const auto blocks = (timeline.end() + blockFrames - 1) / blockFrames;
    const auto end = blocks * blockFrames;
    const auto spanFrames = spanBlocks(blocks, jobs_.cores()) * blockFrames;
    RenderProgress progress(tracks_, [this](quint64 current, quint64 total) { emit renderProgress(current, total); });
    using Frames = std::vector<float>;
    DspClock mixed = 0;
    DspClock written = 0;
    const auto write = [&](const Frames &stereo) {
        require(engine_->write(stereo));
        for (const auto spanEnd = written + stereo.size() / 2; written < spanEnd; written += blockFrames)
            progress.passBlock(written + blockFrames);
    };
    jobs_.run<Frames>([&]() -> std::optional<Job<Frames>> {
        if (mixed == end)
            return std::nullopt;
        const auto from = mixed;
        mixed = std::min(end, from + spanFrames);
        const auto work = [&engine = *engine_, mix = timeline.mix(from, mixed), from, frames = mixed - from] {
            Frames stereo(2 * frames);
            if (const auto result = engine.mixSpan(*mix, from, stereo); result != AudioResult::Ok)
                throw QString::fromUtf8(engine.errorText(result));
            return stereo;
        };
        return Job<Frames>{work, write};
    });
}

void RenderWorker::require(AudioResult result)
{
    if (!checker_.check(*engine_, result))
        throw QString::fromUtf8(engine_->errorText(result));
}
