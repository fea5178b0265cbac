#pragma once

#include "audio/player/PlayerWorker.h"

#include <QThread>

// Sounds tracks and preview notes. Every request goes to a PlayerWorker on an audio thread of the player's own and
// returns at once; what the worker tells comes back as the signal of the same name, in the player's thread. See
// PlayerWorker for what they mean. [ui]
class TrackPlayer : public QObject
{
    Q_OBJECT

public:
    // Playback is ready at once; requests wait until the engine is.
    explicit TrackPlayer(EngineFactory makeEngine, QObject *parent = nullptr);
    // Ends all playback and waits for the audio thread.
    ~TrackPlayer() override;

signals:
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
    void engineMade(const QString &warning);
    void outputChanged(const QString &problem);
    void loadingTrack(int track, int tracks, int percent);
    void tracksLoaded();
    void warned(const QString &text);

    void __initialize(); // to the worker
    void __terminate();  // to the worker

public slots:
    void renewEngine();
    void playPreviewNote(const Instrument &instrument, quint32 noteId);
    void stopPreviewNote();
    void setKeySound(const Instrument &instrument, float volume);
    void pressKey(quint8 pitch, quint8 velocity); // [any]
    void releaseKey(quint8 pitch);                // [any]
    void playTrack(const PlayRequest &request);
    void playTracks(const QVector<PlayRequest> &requests);
    void muteTrack(const QString &trackId, bool mute);
    void changeInstrument(const QString &trackId, const Instrument &instrument);
    void precacheInstrument(const Instrument &instrument, const Track &track);
    void setLoop(const std::optional<LoopRegion> &loop);
    void setTempoFactor(double factor);
    void setOffset(const QString &trackId, double milliseconds);
    void setMasterVolume(float volume);
    void setVolume(const QString &trackId, float volume);
    void setPan(const QString &trackId, float pan);
    void seek(const QString &trackId, quint64 tickPos);
    void seekSynced(quint64 tickPos, const QString &syncGroup);
    void seekAll(quint64 tickPos);
    void stopTrack(const QString &trackId);
    void stopAll(); // ends the loading, too; what waits to be loaded or started is dropped

private:
    void relaySignals();
    template<typename Slot, typename... Arguments>
    void post(Slot slot, const Arguments &...arguments);
    template<typename Slot, typename... Arguments>
    void postUntilStopped(Slot slot, const Arguments &...arguments);

    std::stop_source stop_; // of what stopAll() makes needless
    QThread thread_;
    PlayerWorker *worker_; // lives on the thread and is deleted at its end
};
