#include "audio/PlayingTracks.h"

#include <QCoreApplication>

#include <algorithm>
#include <utility>

PlayingTracks::PlayingTracks(AudioEngine &engine, ResultChecker &checker, SampleFeed &feed, Listener listener)
    : engine_(engine), checker_(checker), feed_(feed), listener_(std::move(listener))
{
}

void PlayingTracks::play(const QVector<PlayRequest> &requests)
{
    if (tracks_.isEmpty())
        hasWarned_ = false;
    for (const auto &request : requests)
        start(request);
    lookAheadAgain();
}

void PlayingTracks::start(const PlayRequest &request)
{
    const auto now = engine_.clock();
    PlayingTrack track{TrackPlayback(request.track, request.instrument, engine_.sampleRate(), now), request.syncGroup,
                       request.level, request.isMuted, request.from};
    const auto *const leader = leaderOf(request);
    if (leader && !leader->isHeld)
        return join(request.trackId, track, leader->playback);
    const auto *const partner = leader ? leader : partnerOf(request);
    track.isHeld = !partner || partner->isHeld;
    track.from = leader ? leader->from : request.from;
    track.playback.seek(track.from, partner ? partner->playback.clockAt(partner->from) : now + lookAhead());
    begin(request.trackId, track);
}

// Whose position a request takes over; null when the track starts by itself.
const PlayingTrack *PlayingTracks::leaderOf(const PlayRequest &request) const
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

// One of the group that has yet to begin.
const PlayingTrack *PlayingTracks::partnerOf(const PlayRequest &request) const
{
    const auto now = engine_.clock();
    const auto isWaitingToo = [&](const PlayingTrack &track) {
        return !request.syncGroup.isEmpty() && track.syncGroup == request.syncGroup &&
               qint64(track.playback.clockAt(track.from) - now) > 0;
    };
    const auto partner = std::find_if(tracks_.begin(), tracks_.end(), isWaitingToo);
    return partner != tracks_.end() ? &*partner : nullptr;
}

void PlayingTracks::begin(const QString &trackId, PlayingTrack track)
{
    if (!check(engine_.createGroup(track.group)))
        return;
    if (const auto replaced = tracks_.constFind(trackId); replaced != tracks_.constEnd())
        check(engine_.releaseGroup(replaced->group));
    insert(trackId, track);
}

void PlayingTracks::join(const QString &trackId, PlayingTrack track, const TrackPlayback &leader)
{
    const auto now = engine_.clock();
    track.playback.join(leader, now);
    QSet<int> sounding;
    if (const auto replaced = tracks_.constFind(trackId); replaced != tracks_.constEnd()) {
        track.group = replaced->group;
        forgetLateNotes(trackId);
        sounding = soundingNotes_.handOver(trackId, replaced->playback, track.playback,
                                           [this](VoiceId voice) { check(engine_.fadeOut(voice, shortFade())); });
    } else if (!check(engine_.createGroup(track.group))) {
        return;
    }
    // At once: in the next pass its first notes would be late.
    schedule(trackId, insert(trackId, track), now, sounding);
}

PlayingTrack &PlayingTracks::insert(const QString &trackId, const PlayingTrack &track)
{
    check(engine_.setGroupLevel(track.group, track.level));
    longestLength_ = std::max(longestLength_, track.playback.track().length());
    auto &inserted = *tracks_.insert(trackId, track);
    listener_.started(trackId);
    return inserted;
}

void PlayingTracks::prepare(const Track &track, const Instrument &instrument)
{
    constexpr auto afterAll = DspClock(1) << 61;
    prepared_.emplace_back(TrackPlayback(track, instrument, engine_.sampleRate(), afterAll));
}

void PlayingTracks::pass()
{
    const bool isAnythingNew = wantSamples();
    feed_.work(engine_.clock());
    hold(feed_.isIdle() && !isAnythingNew);
    soundLateNotes();
    for (auto track = tracks_.begin(); track != tracks_.end();)
        track = passTrack(track) ? std::next(track) : tracks_.erase(track);
    soundingNotes_.tell(engine_.clock(), listener_.pressed, listener_.released);
}

// In the order of their use; some in each pass, so that none takes long.
bool PlayingTracks::wantSamples()
{
    constexpr int mostInOnePass = 500;
    const auto end = engine_.clock() + 600 * DspClock(engine_.sampleRate());
    bool isAnythingNew = false;
    for (int i = 0; i < mostInOnePass; ++i, isAnythingNew = true) {
        SampleAhead *first = nullptr;
        for (auto &track : tracks_) {
            if (!track.ahead.isOver() && (!first || qint64(track.ahead.nextClock() - first->nextClock()) < 0))
                first = &track.ahead;
        }
        if (first && qint64(first->nextClock() - end) > 0)
            return isAnythingNew;
        std::erase_if(prepared_, [](const SampleAhead &ahead) { return ahead.isOver(); });
        if (!first && !prepared_.empty())
            first = &prepared_.front();
        if (!first || !first->wantNext(feed_))
            return isAnythingNew;
    }
    return isAnythingNew;
}

// Moves the tracks that are held so that they will begin 100 ms from now, unless all is there: then they begin.
void PlayingTracks::hold(bool isStuck)
{
    std::vector<PlayingTrack *> held;
    for (auto &track : tracks_) {
        if (track.isHeld)
            held.push_back(&track);
    }
    if (held.empty())
        return endLoading();
    const auto start = engine_.clock() + lookAhead();
    for (auto *const track : held)
        track->playback.seek(track->from, start);
    if (tellLoading(held) && !isStuck)
        return;
    for (auto *const track : held)
        track->isHeld = false;
    lookAheadAgain();
    endLoading();
}

bool PlayingTracks::tellLoading(const std::vector<PlayingTrack *> &held)
{
    const auto end = engine_.clock() + lookAhead() + DspClock(engine_.sampleRate());
    for (std::size_t i = 0; i < held.size(); ++i) {
        const auto samples = held[i]->isMuted ? SampleCount() : countSamples(held[i]->playback, end, feed_);
        if (samples.ready == samples.all)
            continue;
        const std::tuple now(int(i) + 1, int(held.size()), 100 * samples.ready / samples.all);
        if (std::exchange(toldLoading_, now) != now)
            std::apply(listener_.loading, now);
        return true;
    }
    return false;
}

void PlayingTracks::endLoading()
{
    if (std::exchange(toldLoading_, {}) != std::tuple(0, 0, 0))
        listener_.loaded();
}

// The notes sound at other clocks than before.
void PlayingTracks::lookAheadAgain()
{
    feed_.forgetWants();
    for (auto &track : tracks_)
        track.ahead = SampleAhead(track.playback);
}

bool PlayingTracks::passTrack(Tracks::iterator track)
{
    const auto now = engine_.clock();
    if (track->isHeld && longestLength_ > 0)
        return true;
    // Tracks that were started together end together, with the longest.
    if (!track->playback.isExhausted() || track->playback.tickAt(now) < longestLength_) {
        schedule(track.key(), *track, now);
        return true;
    }
    forgetLateNotes(track.key());
    listener_.stopped(track.key());
    check(engine_.releaseGroup(track->group));
    return false;
}

void PlayingTracks::schedule(const QString &trackId, PlayingTrack &track, DspClock now, const QSet<int> &sounding)
{
    const auto horizon = track.playback.tickAt(now + lookAhead());
    while (const auto note = track.playback.takeNote(horizon)) {
        if (track.isMuted || sounding.contains(note->eventIndex))
            continue;
        if (const LateNote late{trackId, track.group, *note}; !sound(late, now))
            lateNotes_.push_back(late);
    }
}

bool PlayingTracks::sound(const LateNote &late, DspClock now)
{
    const auto &note = late.note;
    const bool isLate = qint64(note.start - now) < 0;
    const bool isOver = isLate && (qint64(note.end - now) <= 0 || note.start > now);
    const auto found = isOver ? SampleFeed::Found() : feed_.find(needOf(note));
    if (found.state == SampleFeed::State::Loading) {
        feed_.wantNow(needOf(note));
        return false;
    }
    VoiceId id{};
    if (found.sound && check(engine_.play({found.sound, late.group, note.start, note.end, note.fadeEnd, note.velocity,
                                           found.ratio, LateStart::Inside},
                                          id)))
        soundingNotes_.add({late.trackId, note.start, note.end, note.eventIndex, id});
    return true;
}

void PlayingTracks::soundLateNotes()
{
    const auto now = engine_.clock();
    std::erase_if(lateNotes_, [&](const LateNote &late) {
        const bool isMissed = qint64(late.note.end - now) <= 0;
        if (isMissed)
            warn(feed_.lacksRoom()
                     ? QCoreApplication::translate(
                           "PlayerWorker", "The samples that sound at once need too much memory: notes are missing.")
                     : QCoreApplication::translate("PlayerWorker",
                                                   "Samples could not be loaded in time: notes are missing."));
        return isMissed || sound(late, now);
    });
}

void PlayingTracks::forgetLateNotes(const QString &trackId)
{
    std::erase_if(lateNotes_, [&trackId](const LateNote &late) { return late.trackId == trackId; });
}

void PlayingTracks::warn(const QString &text)
{
    if (!std::exchange(hasWarned_, true))
        listener_.warn(text);
}

void PlayingTracks::setMuted(const QString &trackId, bool isMuted)
{
    if (const auto track = tracks_.find(trackId); track != tracks_.end())
        track->isMuted = isMuted;
}

void PlayingTracks::setLevel(const QString &trackId, const std::function<void(GroupLevel &)> &change)
{
    const auto track = tracks_.find(trackId);
    if (track == tracks_.end())
        return;
    change(track->level);
    check(engine_.setGroupLevel(track->group, track->level));
}

void PlayingTracks::setInstrument(const QString &trackId, const Instrument &instrument)
{
    const auto track = tracks_.find(trackId);
    if (track == tracks_.end())
        return;
    track->playback.setInstrument(instrument);
    lookAheadAgain();
}

void PlayingTracks::seek(Ticks tick,
                         const std::function<bool(const QString &trackId, const PlayingTrack &)> &isSelected)
{
    const auto now = engine_.clock();
    const auto forSelected = [&](const auto &action) {
        for (auto track = tracks_.begin(); track != tracks_.end(); ++track) {
            if (isSelected(track.key(), *track))
                action(track.key(), *track);
        }
    };
    forSelected([&](const QString &id, PlayingTrack &track) {
        track.from = tick;
        track.playback.seek(tick, track.isHeld ? now + lookAhead() : now);
        forgetLateNotes(id);
    });
    lookAheadAgain();
    // At once: the notes at the new position would be late in the next pass.
    forSelected([&](const QString &id, PlayingTrack &track) {
        if (!track.isHeld)
            schedule(id, track, now);
    });
}

void PlayingTracks::stop(const QString &trackId)
{
    const auto track = tracks_.constFind(trackId);
    if (track == tracks_.constEnd())
        return;
    const auto group = track->group;
    check(engine_.stopGroup(group));
    check(engine_.releaseGroup(group));
    listener_.stopped(trackId);
    soundingNotes_.removeTrack(trackId);
    forgetLateNotes(trackId);
    tracks_.remove(trackId);
    if (tracks_.isEmpty())
        longestLength_ = 0;
}

void PlayingTracks::stopAll()
{
    for (const auto &trackId : tracks_.keys())
        stop(trackId);
    prepared_.clear();
    feed_.forgetWants();
    endLoading();
}
