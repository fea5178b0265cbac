#pragma once

#include "audio/AudioEngine.h"
#include "audio/PlayRequest.h"
#include "audio/ResultChecker.h"
#include "audio/SampleCache.h"
#include "audio/SoundingNotes.h"
#include "audio/TrackPlayback.h"
#include "base/ParallelJobs.h"

#include <QMap>
#include <QObject>
#include <QSet>
#include <QTimer>

#include <functional>
#include <memory>
#include <optional>
#include <stop_token>

// Makes the engine that a player or renderer owns from then on.
using EngineFactory = std::function<std::unique_ptr<AudioEngine>()>;

// Milliseconds of a clock that never goes back; only differences count.
using TimeSource = std::function<qint64()>;
qint64 steadyMilliseconds(); // [any]

// The part of a TrackPlayer that lives on its audio thread: plays tracks and preview notes by giving each note to the
// engine up to 100 ms ahead of the mixer, at its exact output sample. Every slot runs on the worker's own thread; one
// that fails logs why and leaves the rest playing. Ticks are those of the tracks, volumes linear (1 = unity), pans -1
// (left) to 1 (right). What is said of a track that is not playing does nothing.
class PlayerWorker : public QObject
{
    Q_OBJECT

public:
    // now: what the pauses between meters are measured with. [ui]
    explicit PlayerWorker(EngineFactory makeEngine, TimeSource now = steadyMilliseconds, QObject *parent = nullptr);
    ~PlayerWorker() override; // after terminate(), on any thread [any]

    // Runs one of the slots unless it is to be stopped already; precaching ends early when it is stopped later. [audio]
    void runUntil(const std::stop_token &stop, const std::function<void()> &slot);

signals: // [audio]
    void finished();
    void trackStarted(const QString &trackId);
    void trackStopped(const QString &trackId);
    void allTracksStopped();
    void trackPositionChanged(const QString &trackId, quint64 position);
    void masterMeter(float leftRMS, float rightRMS, float leftPeak, float rightPeak);
    void trackMeter(const QString &trackId, float leftRMS, float rightRMS, float leftPeak, float rightPeak);
    void notePressed(const QString &trackId, int eventIndex);
    void noteReleased(const QString &trackId, int eventIndex);
    void loadingSample(const QString &samplePath);
    // Why nothing can be heard, or an empty text when it can be heard again.
    void outputChanged(const QString &problem);
    // How far precacheInstrument() is, in pitches of samples: at first with none done and last, once, with all of them.
    // One that is interrupted ends without the last.
    void precacheProgress(int done, int total);

public slots: // [audio]
    void initialize();
    // Releases the engine and its sounds; nothing plays afterwards.
    void terminate();
    // One pass over all tracks; the timer's.
    void update();
    void playPreviewNote(const Instrument &instrument, quint32 noteId);
    void stopPreviewNote();
    void playTrack(const PlayRequest &request);
    void muteTrack(const QString &trackId, bool mute);
    void changeInstrument(const QString &trackId, const Instrument &instrument);
    // Loads what the track's notes need, on all cores, while the other tracks play on.
    void precacheInstrument(const Instrument &instrument, const Track &track);
    void setMasterVolume(float volume);
    void setVolume(const QString &trackId, float volume);
    void setPan(const QString &trackId, float pan);
    void seek(const QString &trackId, quint64 tickPos);
    void seekSynced(quint64 tickPos, const QString &syncGroup);
    void seekAll(quint64 tickPos);
    void stopTrack(const QString &trackId);
    void stopAll();

private: // [audio]
    struct PlayingTrack
    {
        TrackPlayback playback;
        QString syncGroup; // empty: none
        GroupId group = masterGroup;
        GroupLevel level;
        bool isMuted = false;
    };
    template<typename Action>
    void guarded(Action action);
    template<typename Action>
    void withEngine(Action action); // guarded; does nothing while there is no engine
    template<typename Change>
    void changeTrack(const QString &trackId, Change change);
    template<typename Selected>
    void seekTracks(quint64 tickPos, Selected isSelected);

    bool check(AudioResult result) { return checker_.check(*engine_, result); }
    std::size_t shortFade() const { return std::size_t(engine_->sampleRate()) / 200; } // 5 ms: without a click
    DspClock lookAhead() const { return DspClock(0.1 * engine_->sampleRate()); }
    DspClock startClock(const QString &syncGroup) const;
    const PlayingTrack *leaderOf(const PlayRequest &request) const;
    void begin(const QString &trackId, PlayingTrack track);
    void join(const QString &trackId, PlayingTrack track, const TrackPlayback &leader);
    PlayingTrack &insert(const QString &trackId, const PlayingTrack &track);
    void runPass();
    void wake();
    void restWhenIdle();
    bool areMetersDue();
    void tellMasterMeter();
    void tellTrack(const QString &trackId, const PlayingTrack &track, DspClock now);
    // All but the events that sound already.
    void schedule(const QString &trackId, PlayingTrack &track, DspClock now, const QSet<int> &sounding = {});
    void stop(const QString &trackId);
    void reportOutput();

    EngineFactory makeEngine_;
    TimeSource now_;
    QTimer timer_{this};
    std::stop_token stop_; // of the slot that runs
    ResultChecker checker_;
    std::unique_ptr<AudioEngine> engine_; // null before initialize() and after terminate()
    OutputState outputState_ = OutputState::Running;
    std::unique_ptr<SampleCache> samples_;
    std::unique_ptr<ParallelJobs> jobs_; // behind what its jobs use
    QMap<QString, PlayingTrack> tracks_;
    SoundingNotes soundingNotes_;
    Ticks longestLength_ = 0;
    qint64 lastMeters_ = 0;
    bool isResting_ = false;
    qint64 lastBusy_ = 0; // when something sounded or was to sound
    std::optional<VoiceId> previewVoice_;
    DspClock previewFade_ = 0; // output samples
};
