#include "audio/player/PlayingTracks.h"

#include "audio/clicks/ClickTrack.h"

#include <algorithm>
#include <utility>

namespace {

constexpr auto afterAll = DspClock(1) << 61; // when nothing plays any more

} // namespace

PlayingTracks::PlayingTracks(AudioEngine &engine, ResultChecker &checker, SampleFeed &feed, Listener listener)
    : engine_(engine), checker_(checker), feed_(feed), listener_(std::move(listener)),
      notes_(engine, checker, feed, listener_.warn)
{
    for (const auto click : {Click::Beat, Click::Accent})
        feed_.provide(ClickTrack::sampleName(click), clickSound(click, engine_.sampleRate()));
}

void PlayingTracks::play(const QVector<PlayRequest> &requests)
{
    if (tracks_.isEmpty()) {
        notes_.allowWarning();
        feed_.tryAgain();
    }
    for (const auto &request : requests)
        start(request);
    followLoop();
    lookAheadAgain();
}

void PlayingTracks::start(const PlayRequest &request)
{
    if (request.begin == PlayRequest::Begin::BeforeTheOthers)
        return startCountIn(request);
    const auto now = engine_.clock();
    PlayingTrack track{TrackPlayback(request.track, request.instrument, engine_.sampleRate(), now, tempoFactor_),
                       request.syncGroup, request.level, request.isMuted};
    track.playback.setOffset(samplesOf(request.offset));
    track.playback.setTiming(tempoFactor_, playedLoop_, now);
    const auto *const leader = leaderOf(request);
    if (leader && !leader->isHeld)
        return join(request.trackId, track, *leader);
    const auto *const partner = leader ? leader : partnerOf(request);
    track.isHeld = !partner || partner->isHeld;
    track.place(leader ? leader->from : request.from, partner ? partner->begins : now + notes_.lookAhead());
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
        return !request.syncGroup.isEmpty() && track.syncGroup == request.syncGroup && !track.hasBegun(now);
    };
    const auto partner = std::find_if(tracks_.begin(), tracks_.end(), isWaitingToo);
    return partner != tracks_.end() ? &*partner : nullptr;
}

void PlayingTracks::begin(const QString &trackId, PlayingTrack track)
{
    if (!check(engine_.createGroup(track.group)))
        return;
    if (const auto replaced = tracks_.constFind(trackId); replaced != tracks_.constEnd()) {
        notes_.forgetLateNotes(trackId);
        check(engine_.releaseGroup(replaced->group));
    }
    insert(trackId, track);
}

void PlayingTracks::join(const QString &trackId, PlayingTrack track, const PlayingTrack &leader)
{
    const auto now = engine_.clock();
    track.playback.join(leader.playback, now);
    track.from = leader.from;
    track.begins = leader.begins;
    if (!track.hasBegun(now))
        track.place(track.from, track.begins);
    QVector<EventInPass> sounding;
    if (const auto replaced = tracks_.constFind(trackId); replaced != tracks_.constEnd()) {
        track.group = replaced->group;
        notes_.forgetLateNotes(trackId);
        sounding = notes_.handOver(trackId, replaced->playback, track.playback, SoundingNotes::Begun::End);
    } else if (!check(engine_.createGroup(track.group))) {
        return;
    }
    // At once: in the next pass its first notes would be late.
    schedule(trackId, insert(trackId, track), sounding);
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
    prepared_.emplace_back(TrackPlayback(track, instrument, engine_.sampleRate(), afterAll));
}

void PlayingTracks::pass()
{
    const bool isAnythingNew = wantSamples();
    feed_.work(engine_.clock());
    hold(feed_.isIdle() && !isAnythingNew);
    notes_.soundLateNotes();
    for (auto track = tracks_.begin(); track != tracks_.end();)
        track = passTrack(track) ? std::next(track) : tracks_.erase(track);
    passCountIn();
    notes_.tell(listener_.pressed, listener_.released);
}

// In the order of their use; some in each pass, so that none takes long.
bool PlayingTracks::wantSamples()
{
    constexpr int mostInOnePass = 500;
    const DspClock seconds = playedLoop_ ? 60 : 600; // a loop needs the same again and again
    const auto end = engine_.clock() + seconds * DspClock(engine_.sampleRate());
    bool isAnythingNew = false;
    for (int i = 0; i < mostInOnePass; ++i, isAnythingNew = true) {
        auto *const ahead = earliest(end);
        if (!ahead || !ahead->wantNext(feed_))
            break;
    }
    return isAnythingNew;
}

SampleAhead *PlayingTracks::earliest(DspClock until)
{
    SampleAhead *first = nullptr;
    for (auto &track : tracks_) {
        const auto *const next = track.ahead.next(until);
        if (next && (!first || qint64(next->start - first->next(until)->start) < 0))
            first = &track.ahead;
    }
    std::erase_if(prepared_, [](SampleAhead &ahead) { return !ahead.next(afterAll + afterAll); });
    return first || prepared_.empty() ? first : &prepared_.front();
}

// Moves the tracks that are held so that they, or what comes before them, will begin 100 ms from now, unless all is
// there: then they begin.
void PlayingTracks::hold(bool isStuck)
{
    std::vector<PlayingTrack *> held;
    for (auto &track : tracks_) {
        if (track.isHeld)
            held.push_back(&track);
    }
    if (held.empty())
        return endLoading();
    auto lead = qint64(countInFrames()); // of who begins before the others
    for (const auto *const track : held)
        lead = std::max(lead, -track->playback.offset());
    for (auto *const track : held)
        track->place(track->from, engine_.clock() + notes_.lookAhead() + DspClock(lead));
    if (countIn_ && countIn_->isHeld)
        countIn_->place(0, held.front()->begins - countInFrames());
    if (tellLoading(held) && !isStuck)
        return;
    if (countIn_)
        countIn_->isHeld = false;
    for (auto *const track : held)
        track->isHeld = false;
    lookAheadAgain();
    endLoading();
}

bool PlayingTracks::tellLoading(const std::vector<PlayingTrack *> &held)
{
    const auto firstSecond = DspClock(engine_.sampleRate());
    for (std::size_t i = 0; i < held.size(); ++i) {
        const auto end = held[i]->begins + firstSecond;
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
        schedule(track.key(), *track);
        return true;
    }
    notes_.forgetLateNotes(track.key());
    listener_.stopped(track.key());
    check(engine_.releaseGroup(track->group));
    return false;
}

void PlayingTracks::schedule(const QString &trackId, PlayingTrack &track, const QVector<EventInPass> &sounding)
{
    if (track.isMuted)
        notes_.skip(track.playback);
    else
        notes_.schedule(trackId, track.group, track.playback, sounding);
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

void PlayingTracks::stop(const QString &trackId)
{
    const auto track = tracks_.constFind(trackId);
    if (track == tracks_.constEnd())
        return;
    const auto group = track->group;
    check(engine_.stopGroup(group));
    check(engine_.releaseGroup(group));
    listener_.stopped(trackId);
    notes_.forget(trackId);
    tracks_.remove(trackId);
    if (!tracks_.isEmpty())
        return;
    longestLength_ = 0;
    endCountIn();
}

void PlayingTracks::stopAll()
{
    for (const auto &trackId : tracks_.keys())
        stop(trackId);
    prepared_.clear();
    feed_.forgetWants();
    endLoading();
}
