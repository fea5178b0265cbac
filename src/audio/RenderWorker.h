#pragma once

#include "audio/AudioEngine.h"
#include "audio/RenderTimeline.h"
#include "audio/ResultChecker.h"
#include "audio/SampleCache.h"
#include "base/ParallelJobs.h"

#include <QObject>
#include <QString>

#include <functional>
#include <memory>
#include <stop_token>
#include <vector>

// Makes an engine whose output is the wave file of that path: 48 kHz, stereo.
using FileEngineFactory = std::function<std::unique_ptr<AudioEngine>(const QString &waveFile)>;

// The part of a TrackRenderer that works on its render thread: loads the samples, places all notes on the clock and has
// an engine write them. The file appears under its name when it is whole. Stops within milliseconds when it is asked
// to.
class RenderWorker : public QObject
{
    Q_OBJECT

public:
    RenderWorker(const QString &fileName, FileEngineFactory makeEngine, std::size_t cores,
                 const std::stop_token &stop = {}); // [ui]

    // Only before the worker is moved to its thread. [ui]
    void addTrack(const Track &track, const Instrument &instrument, GroupLevel level);

signals: // [render]
    void renderProgress(quint64 currentTick, quint64 totalTicks);
    void loadingSample(const QString &samplePath);
    // Why there is no file; before renderFinished.
    void renderFailed(const QString &message);
    void renderCancelled(); // instead of renderFailed
    void renderFinished();

public slots: // [render]
    // The whole render; the worker deletes itself afterwards.
    void __render();

private: // [render]
    class Host;

    void renderFile();
    void refuseOverlong(DspClock end) const;
    void writeTimeline(RenderTimeline &timeline);
    void require(AudioResult result);

    QString fileName_;
    FileEngineFactory makeEngine_;
    std::stop_token stop_;
    std::vector<RenderTrack> tracks_;
    ResultChecker checker_;
    std::unique_ptr<AudioEngine> engine_;
    std::unique_ptr<SampleCache> samples_;
    ParallelJobs jobs_; // behind what its jobs use
};
