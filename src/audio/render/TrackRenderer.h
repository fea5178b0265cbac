#pragma once

#include "audio/render/RenderWorker.h"

#include <QThread>

#include <memory>

// Writes tracks into one sound file or several (48 kHz, stereo), on a thread of its own and all cores, while the
// program goes on. For one plan; a finished renderer is thrown away. Existing files are replaced when all new ones are
// whole; a render that fails or is cancelled leaves what was there. [ui]
class TrackRenderer : public QObject
{
    Q_OBJECT

public:
    TrackRenderer(const RenderPlan &plan, FileEngineFactory makeEngine, std::size_t cores = ParallelJobs::allCores(),
                  QObject *parent = nullptr);
    // A plain wave file.
    TrackRenderer(const QString &fileName, FileEngineFactory makeEngine, std::size_t cores = ParallelJobs::allCores(),
                  QObject *parent = nullptr)
        : TrackRenderer(RenderPlan::wave(fileName), std::move(makeEngine), cores, parent)
    {
    }
    // Cancels a render that is running.
    ~TrackRenderer() override;

    // Before render(). offset: milliseconds by which the track sounds later than it should, or sooner; then the files
    // begin with what is sooner.
    void addTrack(const Track &track, const Instrument &instrument, GroupLevel level = {}, double offset = 0);

    // Once.
    void render();
    // From render() until renderFinished.
    bool isRunning() const { return isRunning_; }
    // Of a running render: renderFinished follows at once, and the file stays what it was.
    void cancel()
    {
        if (isRunning_)
            stop_.request_stop();
    }

signals:
    void renderStarted();
    void renderProgress(quint64 currentTick, quint64 totalTicks);
    void renderFinished();
    // A sample is about to be read and decoded.
    void loadingSample(const QString &samplePath);
    // What the user should know of the engine that writes, and of samples that it could not read.
    void warned(const QString &text);
    // Why there is no file; renderFinished follows.
    void renderFailed(const QString &message);
    // There is no file, as cancel() asked for; renderFinished follows.
    void renderCancelled();
    // How many of the samples were beyond full scale, and limited; before renderFinished, when there are any.
    void samplesClipped(quint64 clipped, quint64 samples);
    void __renderRequested(); // to the worker

private slots:
    void onRenderFinished();

private:
    std::stop_source stop_;
    std::unique_ptr<RenderWorker> worker_; // until render(); then it lives on its thread and deletes itself
    QThread thread_;
    bool isRunning_ = false;
};
