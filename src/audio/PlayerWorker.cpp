#include "audio/PlayerWorker.h"

#include "audio/Failure.h"
#include "audio/Logging.h"
#include "base/Interrupted.h"

#include <QThread>

#include <algorithm>
#include <chrono>
#include <utility>
#include <vector>

qint64 steadyMilliseconds()
{
    const auto now = std::chrono::steady_clock::now().time_since_epoch();
    return std::chrono::duration_cast<std::chrono::milliseconds>(now).count();
}

PlayerWorker::PlayerWorker(EngineFactory makeEngine, TimeSource now, QObject *parent)
    : QObject(parent), makeEngine_(std::move(makeEngine)), now_(std::move(now))
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
    try {
        const auto failure = failureOf(action);
        if (!failure.isEmpty())
            qCCritical(audioLog).noquote() << failure;
    } catch (const Interrupted &) { // as it was asked to
    }
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

template<typename Change>
void PlayerWorker::changeTrack(const QString &trackId, Change change)
{
    withEngine([&] {
        if (const auto track = tracks_.find(trackId); track != tracks_.end())
            change(*track);
    });
}

void PlayerWorker::runUntil(const std::stop_token &stop, const std::function<void()> &slot)
{
    if (stop.stop_requested())
        return;
    stop_ = stop;
    slot();
    stop_ = {};
}

void PlayerWorker::initialize()
{
    guarded([this] {
        engine_ = makeEngine_();
        const auto result = engine_->initialize();
        if (!check(result) && result != AudioResult::NoDevice) {
            emit outputChanged(QString::fromUtf8(engine_->errorText(result)));
            engine_.reset();
            return;
        }
        const auto tellLoading = [this](const QString &path) { emit loadingSample(path); };
        samples_ = std::make_unique<SampleCache>(*engine_, engine_->sampleRate(), tellLoading);
        jobs_ = std::make_unique<ParallelJobs>(ParallelJobs::allCores(), [this] {
            throwIfStopped(stop_);
            runPass();
        });
        reportOutput();
        lastBusy_ = now_();
        timer_.start();
    });
}

void PlayerWorker::terminate()
{
    withEngine([this] {
        timer_.stop();
        jobs_.reset();
        tracks_.clear();
        samples_.reset();
        check(engine_->release());
        engine_.reset();
    });
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
    for (auto track = tracks_.begin(); track != tracks_.end();) {
        const auto now = engine_->clock();
        if (isMeterTime)
            tellTrack(track.key(), *track, now);
        // Tracks that were started together end together, with the longest.
        if (track->playback.isExhausted() && track->playback.tickAt(now) >= longestLength_) {
            emit trackStopped(track.key());
            check(engine_->releaseGroup(track->group));
            track = tracks_.erase(track);
        } else {
            schedule(track.key(), *track, now);
            ++track;
        }
    }
    soundingNotes_.tell(
        engine_->clock(), [this](const QString &trackId, int index) { emit notePressed(trackId, index); },
        [this](const QString &trackId, int index) { emit noteReleased(trackId, index); });
    check(engine_->update());
    reportOutput();
    restWhenIdle();
}

// Before anything sounds.
void PlayerWorker::wake()
{
    lastBusy_ = now_();
    if (!std::exchange(isResting_, false))
        return;
    engine_->wake();
    timer_.start();
}

void PlayerWorker::restWhenIdle()
{
    constexpr qint64 patience = 2000; // until then every queue behind the engine has been heard
    const auto now = now_();
    if (!tracks_.isEmpty() || !soundingNotes_.isEmpty() || engine_->playingVoices() > 0)
        lastBusy_ = now;
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

void PlayerWorker::tellTrack(const QString &trackId, const PlayingTrack &track, DspClock now)
{
    emit trackPositionChanged(trackId, quint64(track.playback.tickAt(now)));
    const auto level = engine_->groupMeter(track.group);
    emit trackMeter(trackId, level.leftRms, level.rightRms, level.leftPeak, level.rightPeak);
}

void PlayerWorker::schedule(const QString &trackId, PlayingTrack &track, DspClock now, const QSet<int> &sounding)
{
    const auto horizon = track.playback.tickAt(now + lookAhead());
    while (const auto note = track.playback.takeNote(horizon)) {
        const bool isLate = qint64(note->start - now) < 0;
        if (track.isMuted || isLate || sounding.contains(note->eventIndex))
            continue;
        const auto voice = voiceFor(*note, track.group, *samples_);
        VoiceId id{};
        if (voice.sound && check(engine_->play(voice, id)))
            soundingNotes_.add({trackId, note->start, note->end, note->eventIndex, id});
    }
}

void PlayerWorker::reportOutput()
{
    const auto state = engine_->outputState();
    if (state == outputState_)
        return;
    outputState_ = state;
    const bool isHeard = state == OutputState::Running;
    emit outputChanged(isHeard ? QString() : QString::fromUtf8(engine_->errorText(AudioResult::NoDevice)));
}

void PlayerWorker::playPreviewNote(const Instrument &instrument, quint32 noteId)
{
    withEngine([&] {
        wake();
        const auto sample = samples_->find(instrument.tuning.notes.value(noteId), never);
        VoiceSpec voice;
        voice.sound = sample.sound;
        voice.start = engine_->clock();
        voice.ratio = sample.ratio;
        VoiceId id{};
        if (!voice.sound || !check(engine_->play(voice, id)))
            return;
        previewVoice_ = id;
        previewFade_ = fadeSamples(instrument.tuning.fadeout, engine_->sampleRate());
    });
}

void PlayerWorker::stopPreviewNote()
{
    withEngine([this] {
        if (previewVoice_ && engine_->isPlaying(*previewVoice_))
            check(engine_->fadeOut(*previewVoice_, previewFade_));
        previewVoice_.reset();
    });
}

void PlayerWorker::playTrack(const PlayRequest &request)
{
    withEngine([&] {
        wake();
        const TrackPlayback playback(request.track, request.instrument, engine_->sampleRate(),
                                     startClock(request.syncGroup));
        const PlayingTrack playing{playback, request.syncGroup, masterGroup, request.level, request.isMuted};
        if (const auto *const leader = leaderOf(request))
            join(request.trackId, playing, leader->playback);
        else
            begin(request.trackId, playing);
    });
}

// Whose position a request takes over; null when the track starts by itself.
const PlayerWorker::PlayingTrack *PlayerWorker::leaderOf(const PlayRequest &request) const
{
    if (request.begin == PlayRequest::Begin::AtTheStart)
        return nullptr;
    const auto isInGroup = [&](const PlayingTrack &track) {
        return !request.syncGroup.isEmpty() && track.syncGroup == request.syncGroup;
    };
    auto leader = tracks_.constFind(request.trackId);
    if (leader == tracks_.constEnd())
        leader = std::find_if(tracks_.constBegin(), tracks_.constEnd(), isInGroup);
    return leader != tracks_.constEnd() ? &*leader : nullptr;
}

void PlayerWorker::begin(const QString &trackId, PlayingTrack track)
{
    if (!check(engine_->createGroup(track.group)))
        return;
    if (const auto replaced = tracks_.constFind(trackId); replaced != tracks_.constEnd())
        check(engine_->releaseGroup(replaced->group));
    insert(trackId, track);
}

void PlayerWorker::join(const QString &trackId, PlayingTrack track, const TrackPlayback &leader)
{
    const auto now = engine_->clock();
    track.playback.join(leader, now);
    QSet<int> sounding;
    if (const auto replaced = tracks_.constFind(trackId); replaced != tracks_.constEnd()) {
        track.group = replaced->group;
        sounding = soundingNotes_.handOver(trackId, replaced->playback, track.playback,
                                           [this](VoiceId voice) { check(engine_->fadeOut(voice, shortFade())); });
    } else if (!check(engine_->createGroup(track.group))) {
        return;
    }
    // At once: in the next pass its first notes would be late.
    schedule(trackId, insert(trackId, track), now, sounding);
}

PlayerWorker::PlayingTrack &PlayerWorker::insert(const QString &trackId, const PlayingTrack &track)
{
    check(engine_->setGroupLevel(track.group, track.level));
    longestLength_ = std::max(longestLength_, track.playback.track().length());
    auto &inserted = *tracks_.insert(trackId, track);
    emit trackStarted(trackId);
    return inserted;
}

DspClock PlayerWorker::startClock(const QString &syncGroup) const
{
    const auto now = engine_->clock();
    const auto isWaitingToo = [&](const PlayingTrack &track) {
        return !syncGroup.isEmpty() && track.syncGroup == syncGroup && qint64(track.playback.start() - now) > 0;
    };
    const auto partner = std::find_if(tracks_.begin(), tracks_.end(), isWaitingToo);
    return partner != tracks_.end() ? partner->playback.start() : now + lookAhead();
}

void PlayerWorker::muteTrack(const QString &trackId, bool mute)
{
    changeTrack(trackId, [mute](PlayingTrack &track) { track.isMuted = mute; });
}

void PlayerWorker::changeInstrument(const QString &trackId, const Instrument &instrument)
{
    changeTrack(trackId, [&instrument](PlayingTrack &track) { track.playback.setInstrument(instrument); });
}

void PlayerWorker::precacheInstrument(const Instrument &instrument, const Track &track)
{
    withEngine([&] {
        const auto tellProgress = [this](int done, int total) { emit precacheProgress(done, total); };
        samples_->prepare({{track, instrument, engine_->sampleRate(), 0}}, *jobs_, tellProgress);
    });
}

void PlayerWorker::setMasterVolume(float volume)
{
    withEngine([this, volume] { check(engine_->setGroupLevel(masterGroup, {volume, 0})); });
}

void PlayerWorker::setVolume(const QString &trackId, float volume)
{
    changeTrack(trackId, [this, volume](PlayingTrack &track) {
        track.level.volume = volume;
        check(engine_->setGroupLevel(track.group, track.level));
    });
}

void PlayerWorker::setPan(const QString &trackId, float pan)
{
    changeTrack(trackId, [this, pan](PlayingTrack &track) {
        track.level.pan = pan;
        check(engine_->setGroupLevel(track.group, track.level));
    });
}

template<typename Selected>
void PlayerWorker::seekTracks(quint64 tickPos, Selected isSelected)
{
    withEngine([&] {
        const auto tick = Ticks(std::min(tickPos, quint64(maxTicks)));
        const auto now = engine_->clock();
        for (auto track = tracks_.begin(); track != tracks_.end(); ++track) {
            if (isSelected(track.key(), *track))
                track->playback.seek(tick, now);
        }
        // At once: the notes at the new position would be late in the next pass.
        for (auto track = tracks_.begin(); track != tracks_.end(); ++track) {
            if (isSelected(track.key(), *track))
                schedule(track.key(), *track, now);
        }
    });
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
    withEngine([&] { stop(trackId); });
}

void PlayerWorker::stopAll()
{
    withEngine([this] {
        for (const auto &trackId : tracks_.keys())
            stop(trackId);
    });
    emit allTracksStopped();
}

void PlayerWorker::stop(const QString &trackId)
{
    const auto track = tracks_.constFind(trackId);
    if (track == tracks_.constEnd())
        return;
    const auto group = track->group;
    check(engine_->stopGroup(group));
    check(engine_->releaseGroup(group));
    emit trackStopped(trackId);
    soundingNotes_.removeTrack(trackId);
    tracks_.remove(trackId);
    if (tracks_.isEmpty())
        longestLength_ = 0;
}
