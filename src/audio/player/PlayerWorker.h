#pragma once

#include "audio/EngineFactory.h"
#include "audio/player/LiveKeys.h"
#include "audio/player/PlayingTracks.h"
#include "audio/player/PreviewNote.h"

#include <QObject>
#include <QThread>
#include <QTimer>
#include <QVector>

#include <functional>
#include <memory>
#include <optional>

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
    // now: what the pauses between meters are measured with. loadingThreads: that load samples; with none the passes
    // do, and nothing is ever late. [ui]
    explicit PlayerWorker(EngineFactory makeEngine, TimeSource now = steadyMilliseconds,
                          int loadingThreads = QThread::idealThreadCount(), QObject *parent = nullptr);
    ~PlayerWorker() override; // after terminate(), on any thread [any]

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
    // What the user should know of the engine that was made; mostly nothing, which is an empty text.
    void engineMade(const QString &warning);
    // Why nothing can be heard, or an empty text when it can be heard again.
    void outputChanged(const QString &problem);
    // Tracks do not begin yet, since samples of their first second are missing: those of this track (from 1) of so
    // many, which has so much per cent of them.
    void loadingTrack(int track, int tracks, int percent);
    // They begin, or were stopped.
    void tracksLoaded();
    // What the user should know: at most one thing each time that something starts to play.
    void warned(const QString &text);

public slots: // [audio]
    void initialize();
    // Releases the engine and its sounds; nothing plays afterwards.
    void terminate();
    // The next start while nothing plays makes a new engine.
    void renewEngine();
    // One pass over all tracks; the timer's.
    void update();
    void playPreviewNote(const Instrument &instrument, quint32 noteId);
    void stopPreviewNote();
    // What the keys sound, from the next one on. volume: linear.
    void setKeySound(const Instrument &instrument, float volume);
    // velocity: 1 to 127.
    void pressKey(quint8 pitch, quint8 velocity);
    void releaseKey(quint8 pitch);
    void playTrack(const PlayRequest &request);
    // In one go: what starts in one sync group begins at the same sample, when all has been loaded.
    void playTracks(const QVector<PlayRequest> &requests);
    // Held notes fade, and sound on where they would be when they are heard again.
    void muteTrack(const QString &trackId, bool mute);
    void changeInstrument(const QString &trackId, const Instrument &instrument);
    // Loads what the track's notes need, behind what is needed sooner and as far as there is room.
    void precacheInstrument(const Instrument &instrument, const Track &track);
    // Of all tracks, also of those to come: from the next moment on, without a gap. A track that is behind the loop
    // plays on until a seek leads it back; one that loops does not end. A region of less than 50 ms is none.
    void setLoop(const std::optional<LoopRegion> &loop);
    // Times the written tempo, above 0; pitches stay.
    void setTempoFactor(double factor);
    // Milliseconds by which the track sounds later than it should, or sooner.
    void setOffset(const QString &trackId, double milliseconds);
    void setMasterVolume(float volume);
    void setVolume(const QString &trackId, float volume);
    void setPan(const QString &trackId, float pan);
    void seek(const QString &trackId, quint64 tickPos);
    void seekSynced(quint64 tickPos, const QString &syncGroup);
    void seekAll(quint64 tickPos);
    void stopTrack(const QString &trackId);
    void stopAll();

private: // [audio]
    template<typename Action>
    void guarded(Action action);
    template<typename Action>
    void withEngine(Action action); // guarded; does nothing while there is no engine
    template<typename Selected>
    void seekTracks(quint64 tickPos, Selected isSelected);

    bool check(AudioResult result) { return checker_.check(*engine_, result); }
    void openEngine();
    void closeEngine();
    void renewWhenDue();
    void makePlaying();
    void runPass();
    void wake();
    void restWhenIdle();
    bool areMetersDue();
    void tellMasterMeter();
    void tellTrack(const QString &trackId, const PlayingTrack &track);
    void reportOutput();
    void tellOutput(const QString &problem);

    EngineFactory makeEngine_;
    TimeSource now_;
    int loadingThreads_;
    QTimer timer_{this};
    ResultChecker checker_;
    std::unique_ptr<AudioEngine> engine_; // null before initialize() and after terminate(), as what follows
    std::unique_ptr<SampleFeed> samples_;
    std::unique_ptr<PlayingTracks> playing_;
    std::unique_ptr<PreviewNote> preview_;
    std::unique_ptr<LiveKeys> keys_;
    Instrument keyInstrument_;
    float keyVolume_ = 1;
    bool isRenewalDue_ = false;
    float masterVolume_ = 1;
    std::optional<LoopRegion> loop_;
    double tempoFactor_ = 1;
    QString outputProblem_; // as it was told
    qint64 lastMeters_ = 0;
    bool isResting_ = false;
    qint64 lastBusy_ = 0; // when something sounded or was to sound
};
