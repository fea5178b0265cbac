#include "audio/player/PlayerWorker.h"

#include "audio/Failure.h"
#include "audio/Logging.h"
#include "audio/SampleCache.h"

#include <QCoreApplication>

#include <algorithm>
#include <chrono>
#include <utility>

qint64 steadyMilliseconds()
{
    const auto now = std::chrono::steady_clock::now().time_since_epoch();
    return std::chrono::duration_cast<std::chrono::milliseconds>(now).count();
}

PlayerWorker::PlayerWorker(EngineFactory makeEngine, TimeSource now, int loadingThreads, QObject *parent)
    : QObject(parent), makeEngine_(std::move(makeEngine)), now_(std::move(now)), loadingThreads_(loadingThreads)
{
    timer_.setInterval(1);
    timer_.setTimerType(Qt::PreciseTimer);
    connect(&timer_, &QTimer::timeout, this, &PlayerWorker::update);
}

PlayerWorker::~PlayerWorker()
{
    if (engine_)
        qCCritical(audioLog) << "PlayerWorker::terminate() was not invoked before destruction!";
}

// Every slot's work goes through here: an exception that left a slot would end the program.
template<typename Action>
void PlayerWorker::guarded(Action action)
{
    if (QThread::currentThread() != thread())
        qFatal("PlayerWorker: a slot was called outside the worker's thread");
    const auto failure = failureOf(action);
    if (!failure.isEmpty())
        qCCritical(audioLog).noquote() << failure;
}

template<typename Action>
void PlayerWorker::withEngine(Action action)
{
    guarded([&] {
        checker_.beginPass();
        if (engine_)
            action();
    });
}

void PlayerWorker::initialize()
{
    guarded([this] { openEngine(); });
}

void PlayerWorker::openEngine()
{
    auto made = makeEngine_();
    engine_ = std::move(made.engine);
    emit engineMade(made.warning);
    const auto result = engine_->initialize();
    const bool isUnheard = result == AudioResult::NoDevice || result == AudioResult::DeviceNotAnswering;
    if (!check(result) && !isUnheard) {
        tellOutput(QCoreApplication::translate("AudioEngine", engine_->errorText(result)));
        engine_.reset();
        return;
    }
    makePlaying();
    reportOutput();
    isResting_ = false;
    lastBusy_ = now_();
    timer_.start();
}

void PlayerWorker::closeEngine()
{
    timer_.stop();
    keys_.reset();
    preview_.reset();
    playing_.reset();
    samples_.reset();
    check(engine_->release());
    engine_.reset();
}

void PlayerWorker::renewEngine()
{
    isRenewalDue_ = true;
}

void PlayerWorker::renewWhenDue()
{
    if ((playing_ && !playing_->isIdle()) || !std::exchange(isRenewalDue_, false))
        return;
    if (engine_)
        closeEngine();
    openEngine();
    if (!engine_)
        return;
    check(engine_->setGroupLevel(masterGroup, {masterVolume_, 0}));
    playing_->setLoop(loop_);
    playing_->setTempoFactor(tempoFactor_);
}

void PlayerWorker::makePlaying()
{
    const auto tellLoading = [this](const QString &path) { emit loadingSample(path); };
    const auto log = [](const QString &text) { qCWarning(audioLog).noquote() << text; };
    samples_ = std::make_unique<SampleFeed>(decoderOf(*engine_), engine_->sampleRate(),
                                            SampleFeed::Host{tellLoading, log}, loadingThreads_);
    const auto warn = [this, log](const QString &text) {
        log(text);
        emit warned(text);
    };
    const PlayingTracks::Listener listener{
        [this](const QString &id) { emit trackStarted(id); },
        [this](const QString &id) { emit trackStopped(id); },
        [this](const QString &id, int event) { emit notePressed(id, event); },
        [this](const QString &id, int event) { emit noteReleased(id, event); },
        [this](int track, int tracks, int percent) { emit loadingTrack(track, tracks, percent); },
        [this] { emit tracksLoaded(); },
        warn};
    playing_ = std::make_unique<PlayingTracks>(*engine_, checker_, *samples_, listener);
    preview_ = std::make_unique<PreviewNote>(*engine_, checker_, *samples_);
    keys_ = std::make_unique<LiveKeys>(*engine_, checker_, *samples_);
}

void PlayerWorker::terminate()
{
    withEngine([this] { closeEngine(); });
    emit finished();
}

void PlayerWorker::update()
{
    withEngine([this] { runPass(); });
}

void PlayerWorker::runPass()
{
    const bool isMeterTime = areMetersDue();
    if (isMeterTime)
        tellMasterMeter();
    if (isMeterTime) {
        for (auto track = playing_->tracks().begin(); track != playing_->tracks().end(); ++track)
            tellTrack(track.key(), *track);
    }
    playing_->pass();
    preview_->pass();
    keys_->pass();
    check(engine_->update());
    reportOutput();
    restWhenIdle();
}

// Before anything sounds.
void PlayerWorker::wake()
{
    lastBusy_ = std::max(lastBusy_, now_());
    if (!std::exchange(isResting_, false))
        return;
    engine_->wake();
    timer_.start();
}

void PlayerWorker::restWhenIdle()
{
    constexpr qint64 patience = 2000; // until then every queue behind the engine has been heard
    const auto now = now_();
    if (!playing_->isIdle() || !samples_->isIdle() || engine_->playingVoices() > 0)
        lastBusy_ = std::max(lastBusy_, now);
    if (now - lastBusy_ <= patience || std::exchange(isResting_, true))
        return;
    timer_.stop();
    engine_->rest();
}

bool PlayerWorker::areMetersDue()
{
    constexpr qint64 pause = 25;
    const auto now = now_();
    if (now - lastMeters_ <= pause)
        return false;
    lastMeters_ = now;
    return true;
}

void PlayerWorker::tellMasterMeter()
{
    const auto level = engine_->groupMeter(masterGroup);
    emit masterMeter(level.leftRms, level.rightRms, level.leftPeak, level.rightPeak);
}

void PlayerWorker::tellTrack(const QString &trackId, const PlayingTrack &track)
{
    emit trackPositionChanged(trackId, quint64(track.position(engine_->clock())));
    const auto level = engine_->groupMeter(track.group);
    emit trackMeter(trackId, level.leftRms, level.rightRms, level.leftPeak, level.rightPeak);
}

void PlayerWorker::reportOutput()
{
    const auto state = engine_->outputState();
    const auto problem = state == OutputState::NoDevice ? AudioResult::NoDevice : AudioResult::DeviceNotAnswering;
    tellOutput(state == OutputState::Running ? QString()
                                             : QCoreApplication::translate("AudioEngine", engine_->errorText(problem)));
}

void PlayerWorker::tellOutput(const QString &problem)
{
    if (std::exchange(outputProblem_, problem) != problem)
        emit outputChanged(problem);
}

void PlayerWorker::playPreviewNote(const Instrument &instrument, quint32 noteId)
{
    withEngine([&] {
        wake();
        preview_->play(instrument, noteId);
    });
}

void PlayerWorker::stopPreviewNote()
{
    withEngine([this] { preview_->stop(); });
}

void PlayerWorker::setKeySound(const Instrument &instrument, float volume)
{
    keyInstrument_ = instrument;
    keyVolume_ = volume;
}

// Whoever plays finds the device open for a while.
void PlayerWorker::pressKey(quint8 pitch, quint8 velocity)
{
    constexpr qint64 patience = 60'000;
    withEngine([&] {
        wake();
        lastBusy_ = now_() + patience;
        keys_->press(keyInstrument_, pitch, keyVolume_ * float(velocity) / 127);
    });
}

void PlayerWorker::releaseKey(quint8 pitch)
{
    withEngine([&] { keys_->release(pitch); });
}

void PlayerWorker::playTrack(const PlayRequest &request)
{
    playTracks({request});
}

void PlayerWorker::playTracks(const QVector<PlayRequest> &requests)
{
    guarded([this] { renewWhenDue(); });
    withEngine([&] {
        wake();
        playing_->play(requests);
    });
}

void PlayerWorker::muteTrack(const QString &trackId, bool mute)
{
    withEngine([&] { playing_->setMuted(trackId, mute); });
}

void PlayerWorker::changeInstrument(const QString &trackId, const Instrument &instrument)
{
    withEngine([&] { playing_->setInstrument(trackId, instrument); });
}

void PlayerWorker::precacheInstrument(const Instrument &instrument, const Track &track)
{
    withEngine([&] {
        wake();
        playing_->prepare(track, instrument);
    });
}

void PlayerWorker::setLoop(const std::optional<LoopRegion> &loop)
{
    loop_ = loop;
    withEngine([&] { playing_->setLoop(loop); });
}

void PlayerWorker::setTempoFactor(double factor)
{
    tempoFactor_ = factor;
    withEngine([&] { playing_->setTempoFactor(factor); });
}

void PlayerWorker::setOffset(const QString &trackId, double milliseconds)
{
    withEngine([&] { playing_->setOffset(trackId, milliseconds); });
}

void PlayerWorker::setMasterVolume(float volume)
{
    masterVolume_ = volume;
    withEngine([&] { check(engine_->setGroupLevel(masterGroup, {volume, 0})); });
}

void PlayerWorker::setVolume(const QString &trackId, float volume)
{
    withEngine([&] { playing_->setLevel(trackId, [volume](GroupLevel &level) { level.volume = volume; }); });
}

void PlayerWorker::setPan(const QString &trackId, float pan)
{
    withEngine([&] { playing_->setLevel(trackId, [pan](GroupLevel &level) { level.pan = pan; }); });
}

template<typename Selected>
void PlayerWorker::seekTracks(quint64 tickPos, Selected isSelected)
{
    withEngine([&] { playing_->seek(Ticks(std::min(tickPos, quint64(maxTicks))), isSelected); });
}

void PlayerWorker::seek(const QString &trackId, quint64 tickPos)
{
    seekTracks(tickPos, [&trackId](const QString &id, const PlayingTrack &) { return id == trackId; });
}

void PlayerWorker::seekSynced(quint64 tickPos, const QString &syncGroup)
{
    seekTracks(tickPos,
               [&syncGroup](const QString &, const PlayingTrack &track) { return track.syncGroup == syncGroup; });
}

void PlayerWorker::seekAll(quint64 tickPos)
{
    seekTracks(tickPos, [](const QString &, const PlayingTrack &) { return true; });
}

void PlayerWorker::stopTrack(const QString &trackId)
{
    withEngine([&] { playing_->stop(trackId); });
}

void PlayerWorker::stopAll()
{
    withEngine([this] { playing_->stopAll(); });
    emit allTracksStopped();
}
