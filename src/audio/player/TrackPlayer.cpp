#include "audio/player/TrackPlayer.h"

TrackPlayer::TrackPlayer(EngineFactory makeEngine, QObject *parent)
    : QObject(parent), worker_(new PlayerWorker(std::move(makeEngine)))
{
    worker_->moveToThread(&thread_);
    // Directly, since the interface thread may be waiting for the thread's end.
    connect(worker_, &PlayerWorker::finished, &thread_, &QThread::quit, Qt::DirectConnection);
    connect(&thread_, &QThread::finished, worker_, &QObject::deleteLater);
    relaySignals();
    connect(this, &TrackPlayer::__initialize, worker_, &PlayerWorker::initialize, Qt::QueuedConnection);
    connect(this, &TrackPlayer::__terminate, worker_, &PlayerWorker::terminate, Qt::QueuedConnection);
    thread_.start(QThread::TimeCriticalPriority);
    emit __initialize();
}

TrackPlayer::~TrackPlayer()
{
    stop_.request_stop(); // whatever is still to be started
    thread_.requestInterruption();
    emit __terminate();
    thread_.wait();
}

void TrackPlayer::relaySignals()
{
    connect(worker_, &PlayerWorker::finished, this, &TrackPlayer::finished);
    connect(worker_, &PlayerWorker::trackStarted, this, &TrackPlayer::trackStarted);
    connect(worker_, &PlayerWorker::trackStopped, this, &TrackPlayer::trackStopped);
    connect(worker_, &PlayerWorker::allTracksStopped, this, &TrackPlayer::allTracksStopped);
    connect(worker_, &PlayerWorker::trackPositionChanged, this, &TrackPlayer::trackPositionChanged);
    connect(worker_, &PlayerWorker::masterMeter, this, &TrackPlayer::masterMeter);
    connect(worker_, &PlayerWorker::trackMeter, this, &TrackPlayer::trackMeter);
    connect(worker_, &PlayerWorker::notePressed, this, &TrackPlayer::notePressed);
    connect(worker_, &PlayerWorker::noteReleased, this, &TrackPlayer::noteReleased);
    connect(worker_, &PlayerWorker::loadingSample, this, &TrackPlayer::loadingSample);
    connect(worker_, &PlayerWorker::engineMade, this, &TrackPlayer::engineMade);
    connect(worker_, &PlayerWorker::outputChanged, this, &TrackPlayer::outputChanged);
    connect(worker_, &PlayerWorker::loadingTrack, this, &TrackPlayer::loadingTrack);
    connect(worker_, &PlayerWorker::tracksLoaded, this, &TrackPlayer::tracksLoaded);
    connect(worker_, &PlayerWorker::warned, this, &TrackPlayer::warned);
}

// The arguments travel by value.
template<typename Slot, typename... Arguments>
void TrackPlayer::post(Slot slot, const Arguments &...arguments)
{
    const auto call = [worker = worker_, slot, arguments...] { (worker->*slot)(arguments...); };
    QMetaObject::invokeMethod(worker_, call, Qt::QueuedConnection);
}

template<typename Slot, typename... Arguments>
void TrackPlayer::postUntilStopped(Slot slot, const Arguments &...arguments)
{
    const auto call = [worker = worker_, stop = stop_.get_token(), slot, arguments...] {
        if (!stop.stop_requested())
            (worker->*slot)(arguments...);
    };
    QMetaObject::invokeMethod(worker_, call, Qt::QueuedConnection);
}

void TrackPlayer::renewEngine()
{
    post(&PlayerWorker::renewEngine);
}

void TrackPlayer::playPreviewNote(const Instrument &instrument, quint32 noteId)
{
    post(&PlayerWorker::playPreviewNote, instrument, noteId);
}

void TrackPlayer::stopPreviewNote()
{
    post(&PlayerWorker::stopPreviewNote);
}

void TrackPlayer::setKeySound(const Instrument &instrument, float volume)
{
    post(&PlayerWorker::setKeySound, instrument, volume);
}

void TrackPlayer::pressKey(quint8 pitch, quint8 velocity)
{
    post(&PlayerWorker::pressKey, pitch, velocity);
}

void TrackPlayer::releaseKey(quint8 pitch)
{
    post(&PlayerWorker::releaseKey, pitch);
}

void TrackPlayer::playTrack(const PlayRequest &request)
{
    postUntilStopped(&PlayerWorker::playTrack, request);
}

void TrackPlayer::playTracks(const QVector<PlayRequest> &requests)
{
    postUntilStopped(&PlayerWorker::playTracks, requests);
}

void TrackPlayer::muteTrack(const QString &trackId, bool mute)
{
    post(&PlayerWorker::muteTrack, trackId, mute);
}

void TrackPlayer::changeInstrument(const QString &trackId, const Instrument &instrument)
{
    post(&PlayerWorker::changeInstrument, trackId, instrument);
}

void TrackPlayer::precacheInstrument(const Instrument &instrument, const Track &track)
{
    postUntilStopped(&PlayerWorker::precacheInstrument, instrument, track);
}

void TrackPlayer::setLoop(const std::optional<LoopRegion> &loop)
{
    post(&PlayerWorker::setLoop, loop);
}

void TrackPlayer::setTempoFactor(double factor)
{
    post(&PlayerWorker::setTempoFactor, factor);
}

void TrackPlayer::setOffset(const QString &trackId, double milliseconds)
{
    post(&PlayerWorker::setOffset, trackId, milliseconds);
}

void TrackPlayer::setMasterVolume(float volume)
{
    post(&PlayerWorker::setMasterVolume, volume);
}

void TrackPlayer::setVolume(const QString &trackId, float volume)
{
    post(&PlayerWorker::setVolume, trackId, volume);
}

void TrackPlayer::setPan(const QString &trackId, float pan)
{
    post(&PlayerWorker::setPan, trackId, pan);
}

void TrackPlayer::seek(const QString &trackId, quint64 tickPos)
{
    post(&PlayerWorker::seek, trackId, tickPos);
}

void TrackPlayer::seekSynced(quint64 tickPos, const QString &syncGroup)
{
    post(&PlayerWorker::seekSynced, tickPos, syncGroup);
}

void TrackPlayer::seekAll(quint64 tickPos)
{
    post(&PlayerWorker::seekAll, tickPos);
}

void TrackPlayer::stopTrack(const QString &trackId)
{
    post(&PlayerWorker::stopTrack, trackId);
}

void TrackPlayer::stopAll()
{
    stop_.request_stop();
    stop_ = {};
    post(&PlayerWorker::stopAll);
}
