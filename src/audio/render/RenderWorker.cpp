#include "audio/render/RenderWorker.h"

#include "audio/Failure.h"
#include "audio/render/RenderSink.h"
#include "base/Interrupted.h"

#include <QCoreApplication>
#include <QFileInfo>
#include <QThread>

#include <algorithm>
#include <variant>

namespace {

constexpr int sampleRate = SoundFileWriter::sampleRate;
constexpr DspClock longestSong = DspClock(6) * 60 * 60 * sampleRate;

} // namespace

struct RenderWorker::Output
{
    explicit Output(const RenderFile &renderFile) : file(renderFile), replacement(renderFile.path)
    {
        replacement.create();
    }

    RenderFile file;
    SafeFile::Replacement replacement;
};

RenderWorker::RenderWorker(const RenderPlan &plan, FileEngineFactory makeEngine, std::size_t cores,
                           const std::stop_token &stop)
    : plan_(plan), makeEngine_(std::move(makeEngine)), stop_(stop), jobs_(cores, [stop] { throwIfStopped(stop); })
{
}

RenderWorker::~RenderWorker() = default;

void RenderWorker::addTrack(const Track &track, const Instrument &instrument, GroupLevel level, double offset)
{
    tracks_.push_back({TrackPlayback(track, instrument, sampleRate, 0), level});
    tracks_.back().playback.setOffset(qint64(offset * sampleRate / 1000));
}

// What sounds sooner than the others begins the file.
void RenderWorker::makeRoomForEarlyTracks()
{
    qint64 lead = 0;
    for (const auto &track : tracks_)
        lead = std::max(lead, -track.playback.offset());
    for (auto &track : tracks_)
        track.playback.seek(0, DspClock(lead));
}

void RenderWorker::__render()
{
    if (QThread::currentThread() != thread())
        qFatal("RenderWorker: rendering outside the worker's thread");
    try {
        const auto failure = failureOf([this] { renderFiles(); });
        if (!failure.isEmpty())
            emit renderFailed(failure);
        else if (clipped_ > 0)
            emit samplesClipped(clipped_, samplesWritten_);
    } catch (const Interrupted &) {
        emit renderCancelled();
    }
    outputs_.clear(); // what is not committed is gone before anybody hears of it
    deleteLater();
    emit renderFinished();
}

void RenderWorker::renderFiles()
{
    refuseImpossible();
    makeRoomForEarlyTracks();
    openOutputs();
    prepareSamples();
    const auto wanted = range();
    refuseOverlong(wanted.to);
    if (engine_->canMix())
        writeMixed(wanted);
    else if (plan_.isPlainWave())
        writePlainWave(wanted);
    else
        throw tr("This sound engine writes nothing but plain WAV files.");
    for (const auto &output : outputs_)
        output->replacement.commit();
    if (const int rejected = samples_->rejected(); rejected > 0)
        emit warned(tr("%n sample(s) could not be read, and their notes are silent", nullptr, rejected));
}

void RenderWorker::refuseImpossible() const
{
    if (tracks_.size() >= maxGroups)
        throw QCoreApplication::translate("RenderWorker", "There are more than %1 tracks.").arg(maxGroups - 1);
    if (plan_.files.empty())
        throw tr("No part is heard, so that there is nothing to write.");
    if (!isBuiltIn(plan_.coding))
        throw tr("%1 files cannot be written here.").arg(QString::fromUtf8(formatOf(plan_.coding).name));
    for (const auto &track : tracks_)
        refuseOverlong(track.playback.lastEventClock());
}

// Who asked for several files does not know which of them it is.
void RenderWorker::fail(const RenderFile &file, const QString &cause) const
{
    throw plan_.files.size() == 1 ? cause : QStringLiteral("%1: %2").arg(QFileInfo(file.path).fileName(), cause);
}

// Before the long work, which is for nothing where there can be no file.
void RenderWorker::openOutputs()
{
    for (const auto &file : plan_.files) {
        const auto failure = failureOf([&] { outputs_.push_back(std::make_unique<Output>(file)); });
        if (!failure.isEmpty())
            fail(file, failure);
    }
}

void RenderWorker::prepareSamples()
{
    auto made = makeEngine_(plan_.isPlainWave() ? outputs_.front()->replacement.path() : QString());
    engine_ = std::move(made.engine);
    if (!made.warning.isEmpty())
        emit warned(made.warning);
    const auto tellLoading = [this](const QString &path) { emit loadingSample(path); };
    samples_ = std::make_unique<SampleCache>(*engine_, sampleRate, tellLoading);
    std::vector<TrackPlayback> playbacks;
    for (const auto &track : tracks_)
        playbacks.push_back(track.playback);
    samples_->prepare(playbacks, jobs_);
}

// By the clock of the longest track.
RenderRange RenderWorker::range()
{
    if (!plan_.range) { // all files end with the block in which the mix does
        const auto block = engine_->blockFrames();
        return {0, (RenderTimeline(tracks_, *samples_, stop_).end() + block - 1) / block * block};
    }
    const auto isShorter = [](const RenderTrack &a, const RenderTrack &b) {
        return a.playback.track().length() < b.playback.track().length();
    };
    const auto longest = std::max_element(tracks_.begin(), tracks_.end(), isShorter);
    if (longest == tracks_.end())
        return {0, 0};
    return {longest->playback.clockAt(plan_.range->begin), longest->playback.clockAt(plan_.range->end)};
}

void RenderWorker::refuseOverlong(DspClock end) const
{
    if (end > longestSong)
        throw QCoreApplication::translate("RenderWorker", "The song is longer than 6 hours.");
    if (end > SoundFileWriter::mostFrames(plan_.coding))
        throw tr("The song is too long for a file of this kind: %1.")
            .arg(QString::fromUtf8(formatOf(plan_.coding).name));
}

// What an engine that renders sees of the worker.
class RenderWorker::Host : public RenderHost
{
public:
    explicit Host(RenderWorker &worker)
        : worker_(worker), progress_(worker.tracks_, [&worker](quint64 current, quint64 total) {
              emit worker.renderProgress(worker.passesDone_ * total + current, worker.passes_ * total);
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

void RenderWorker::writePlainWave(const RenderRange &range)
{
    RenderTimeline timeline(tracks_, *samples_, stop_, range);
    require(engine_->initialize());
    try {
        Host host(*this);
        require(engine_->render(timeline, host));
    } catch (...) {
        engine_->release(); // the file can be removed only when it is closed
        throw;
    }
    require(engine_->release());
}

void RenderWorker::writeMixed(const RenderRange &range)
{
    passes_ = outputs_.size() * (plan_.isNormalised ? 2 : 1);
    const auto gain = plan_.isNormalised ? normalisingGain(range) : 1.0F;
    for (const auto &output : outputs_)
        write(*output, range, gain);
}

float RenderWorker::normalisingGain(const RenderRange &range)
{
    constexpr float target = 0.891251F; // -1 dBFS
    float peak = 0;
    for (const auto &output : outputs_)
        peak = std::max(peak, mix(output->file, range, 1, {}));
    return peak > 0 ? target / peak : 1.0F;
}

void RenderWorker::write(Output &output, const RenderRange &range, float gain)
{
    SoundFileWriter writer;
    const auto requireWritten = [&](bool isWritten) {
        if (!isWritten)
            fail(output.file,
                 writer.systemError() != 0
                     ? SafeFile::causeOf(writer.systemError())
                     : QCoreApplication::translate("AudioEngine", engine_->errorText(AudioResult::CannotWrite)));
    };
    requireWritten(
        writer.open(output.replacement.path().toStdU16String(), {plan_.coding, plan_.quality, output.file.tags}));
    const bool isCarried = output.file.track && formatOf(plan_.coding).bits == 16;
    carry_.beginPart();
    mix(output.file, range, gain, [&](std::span<const float> stereo) {
        requireWritten(writer.write(isCarried ? carry_.rounded(stereo) : stereo));
        return AudioResult::Ok;
    });
    requireWritten(writer.close());
    clipped_ += writer.clippedSamples();
    samplesWritten_ += writer.samples();
}

// Gives the peak when nothing is written.
float RenderWorker::mix(const RenderFile &file, const RenderRange &range, float gain, const MixedFrames &write)
{
    auto tracks = tracks_;
    if (file.track)
        tracks = {tracks_.at(std::size_t(*file.track))};
    RenderTimeline timeline(tracks, *samples_, stop_, range);
    RenderSink sink(range.from, range.to, gain, write);
    Host host(*this);
    require(engine_->mix(timeline, host, [&sink](std::span<const float> stereo) { return sink.take(stereo); }));
    ++passesDone_;
    return sink.peak();
}

void RenderWorker::require(AudioResult result)
{
    if (!checker_.check(*engine_, result))
        throw QCoreApplication::translate("AudioEngine", engine_->errorText(result));
}
