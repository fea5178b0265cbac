#pragma once

#include "audio/EngineFactory.h"
#include "audio/ResultChecker.h"
#include "audio/SampleCache.h"
#include "audio/render/RenderPlan.h"
#include "audio/render/RenderTimeline.h"
#include "audio/render/RoundingCarry.h"
#include "base/ParallelJobs.h"
#include "base/SafeFile.h"

#include <QObject>
#include <QString>

#include <memory>
#include <stop_token>
#include <vector>

// The part of a TrackRenderer that works on its render thread: loads the samples, places all notes on the clock and has
// an engine write or mix them. The files appear under their names when all are whole. Stops within milliseconds when it
// is asked to.
class RenderWorker : public QObject
{
    Q_OBJECT

public:
    RenderWorker(const RenderPlan &plan, FileEngineFactory makeEngine, std::size_t cores,
                 const std::stop_token &stop = {}); // [ui]
    ~RenderWorker() override;

    // Only before the worker is moved to its thread. offset: as in PlayRequest. [ui]
    void addTrack(const Track &track, const Instrument &instrument, GroupLevel level, double offset = 0);

signals: // [render]
    // Of all passes over the song that the plan takes.
    void renderProgress(quint64 currentTick, quint64 totalTicks);
    void loadingSample(const QString &samplePath);
    void warned(const QString &text); // what the user should know of the engine and the samples
    // Why there is no file; before renderFinished.
    void renderFailed(const QString &message);
    void renderCancelled(); // instead of renderFailed
    // Before renderFinished, when there were any in the files.
    void samplesClipped(quint64 clipped, quint64 samples);
    void renderFinished();

public slots: // [render]
    // The whole render; the worker deletes itself afterwards.
    void __render();

private: // [render]
    class Host;

    struct Output;

    void renderFiles();
    void refuseImpossible() const;
    void makeRoomForEarlyTracks();
    void refuseOverlong(DspClock end) const;
    [[noreturn]] void fail(const RenderFile &file, const QString &cause) const;
    void openOutputs();
    void prepareSamples();
    RenderRange range();
    void writePlainWave(const RenderRange &range);
    void writeMixed(const RenderRange &range);
    float normalisingGain(const RenderRange &range);
    void write(Output &output, const RenderRange &range, float gain);
    float mix(const RenderFile &file, const RenderRange &range, float gain, const MixedFrames &write);
    void require(AudioResult result);

    RenderPlan plan_;
    FileEngineFactory makeEngine_;
    std::stop_token stop_;
    std::vector<RenderTrack> tracks_;
    std::vector<std::unique_ptr<Output>> outputs_;
    RoundingCarry carry_;
    quint64 passes_ = 1; // over the song
    quint64 passesDone_ = 0;
    quint64 clipped_ = 0;
    quint64 samplesWritten_ = 0;
    ResultChecker checker_;
    std::unique_ptr<AudioEngine> engine_;
    std::unique_ptr<SampleCache> samples_;
    ParallelJobs jobs_; // behind what its jobs use
};
