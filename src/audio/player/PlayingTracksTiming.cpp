// Where the tracks are, how fast they go, and what comes before them.
#include "audio/player/PlayingTracks.h"

#include <algorithm>
#include <utility>

namespace {

const auto countInId = QStringLiteral("~count-in"); // of its notes

} // namespace

void PlayingTracks::startCountIn(const PlayRequest &request)
{
    endCountIn();
    const TrackPlayback playback(request.track, request.instrument, engine_.sampleRate(), engine_.clock(),
                                 tempoFactor_);
    PlayingTrack track{playback, {}, request.level};
    track.isHeld = true;
    if (!check(engine_.createGroup(track.group)))
        return;
    check(engine_.setGroupLevel(track.group, track.level));
    countIn_ = track;
}

// Of one that is still to begin.
DspClock PlayingTracks::countInFrames() const
{
    if (!countIn_ || !countIn_->isHeld)
        return 0;
    return countIn_->playback.clockAt(countIn_->playback.track().length()) - countIn_->playback.clockAt(0);
}

void PlayingTracks::passCountIn()
{
    if (tracks_.isEmpty())
        return endCountIn();
    if (!countIn_ || countIn_->isHeld)
        return;
    notes_.schedule(countInId, countIn_->group, countIn_->playback);
    if (countIn_->playback.tickAt(engine_.clock()) >= countIn_->playback.track().length())
        endCountIn();
}

// What waits for its end begins there.
void PlayingTracks::retimeCountIn()
{
    if (!countIn_)
        return;
    const auto before = countIn_->playback;
    const auto now = engine_.clock();
    countIn_->playback.setTiming(tempoFactor_, std::nullopt, now);
    if (countIn_->isHeld)
        return;
    notes_.schedule(countInId, countIn_->group, countIn_->playback,
                    notes_.handOver(countInId, before, countIn_->playback, SoundingNotes::Begun::Stay));
    const auto end = countIn_->playback.clockAt(countIn_->playback.track().length());
    for (auto &track : tracks_) {
        if (!track.isHeld && !track.hasBegun(now))
            track.begins = end;
    }
}

void PlayingTracks::endCountIn()
{
    if (!countIn_)
        return;
    check(engine_.stopGroup(countIn_->group));
    check(engine_.releaseGroup(countIn_->group));
    notes_.forget(countInId);
    countIn_.reset();
}

void PlayingTracks::setLoop(const std::optional<LoopRegion> &loop)
{
    loop_ = loop;
    playedLoop_ = playbackLoop();
    applyTiming();
}

void PlayingTracks::setTempoFactor(double factor)
{
    tempoFactor_ = factor;
    playedLoop_ = playbackLoop();
    applyTiming();
}

// All tracks go round together, in the time of the longest.
std::optional<PlaybackLoop> PlayingTracks::playbackLoop() const
{
    const auto isShorter = [](const PlayingTrack &a, const PlayingTrack &b) {
        return a.playback.track().length() < b.playback.track().length();
    };
    const auto longest = std::max_element(tracks_.begin(), tracks_.end(), isShorter);
    if (!loop_ || longest == tracks_.end())
        return std::nullopt;
    const TempoMap tempo(longest->playback.track(), engine_.sampleRate(), tempoFactor_);
    const auto period = tempo.samplesAt(loop_->end) - tempo.samplesAt(loop_->begin);
    const auto shortest = DspClock(engine_.sampleRate()) / 20;
    if (loop_->end <= loop_->begin || period < shortest)
        return std::nullopt;
    return PlaybackLoop{loop_->begin, loop_->end, period};
}

// The longest track, or its tempo, may be another one.
void PlayingTracks::followLoop()
{
    const auto loop = playbackLoop();
    if (loop == playedLoop_)
        return;
    playedLoop_ = loop;
    applyTiming();
}

void PlayingTracks::applyTiming()
{
    retimeCountIn();
    for (auto track = tracks_.begin(); track != tracks_.end(); ++track)
        retime(track.key(), *track, TrackPlayback(track->playback));
    lookAheadAgain();
}

// Notes that sound already end as they would have.
void PlayingTracks::retime(const QString &trackId, PlayingTrack &track, const TrackPlayback &before)
{
    const auto now = engine_.clock();
    track.playback.setTiming(tempoFactor_, playedLoop_, now);
    if (!track.hasBegun(now))
        track.place(track.from, track.begins);
    if (!track.isHeld)
        schedule(trackId, track, notes_.handOver(trackId, before, track.playback, SoundingNotes::Begun::Stay));
}

// At once: what sounds fades as in a stop, and comes back where it would be by then.
void PlayingTracks::setMuted(const QString &trackId, bool isMuted)
{
    const auto track = tracks_.find(trackId);
    if (track == tracks_.end() || std::exchange(track->isMuted, isMuted) == isMuted)
        return;
    if (isMuted) {
        check(engine_.stopGroup(track->group));
        notes_.release(trackId, listener_.released);
        return;
    }
    retime(trackId, *track, TrackPlayback(track->playback));
    if (!track->isHeld && track->hasBegun(engine_.clock()))
        notes_.soundHeld(trackId, track->group, track->playback);
    lookAheadAgain();
}

void PlayingTracks::setOffset(const QString &trackId, double milliseconds)
{
    const auto track = tracks_.find(trackId);
    if (track == tracks_.end())
        return;
    const auto before = track->playback;
    track->playback.setOffset(samplesOf(milliseconds));
    retime(trackId, *track, before);
    lookAheadAgain();
}

void PlayingTracks::seek(Ticks tick,
                         const std::function<bool(const QString &trackId, const PlayingTrack &)> &isSelected)
{
    const auto forSelected = [&](const auto &action) {
        for (auto track = tracks_.begin(); track != tracks_.end(); ++track) {
            if (isSelected(track.key(), *track))
                action(track.key(), *track);
        }
    };
    endCountIn();
    forSelected([&](const QString &id, PlayingTrack &track) {
        track.place(tick, track.isHeld ? engine_.clock() + notes_.lookAhead() : engine_.clock());
        notes_.forgetLateNotes(id);
    });
    lookAheadAgain();
    // At once: the notes at the new position would be late in the next pass.
    forSelected([&](const QString &id, PlayingTrack &track) {
        if (!track.isHeld)
            schedule(id, track);
    });
}
