#include "app/services/Playback.h"

#include "audio/clicks/ClickTrack.h"
#include "audio/player/TrackPlayer.h"
#include "core/HeaderFields.h"

#include <QHash>

#include <algorithm>
#include <utility>

namespace {

const QString syncGroup = QStringLiteral("Main");
const QString metronomeId = QStringLiteral("~metronome"); // which is no track's, and behind them

bool hasSamples(const Instrument &instrument)
{
    const auto &notes = instrument.tuning.notes;
    return std::any_of(notes.begin(), notes.end(), [](const NoteEntry &note) { return !note.files.isEmpty(); });
}

QHash<QString, std::shared_ptr<const SongTrack>> byId(const SongTracks &song)
{
    QHash<QString, std::shared_ptr<const SongTrack>> tracks;
    for (const auto &track : song)
        tracks.insert(track->id, track);
    return tracks;
}

} // namespace

Playback::Playback(TrackList &list, const InstrumentSetModel &catalogue, TrackPlayer &player, QObject *parent)
    : QObject(parent), list_(list), catalogue_(catalogue), player_(player)
{
    connect(&list_, &TrackList::songChanged, this, &Playback::follow);
    connect(&player_, &TrackPlayer::trackStarted, this, &Playback::onTrackStarted);
    connect(&player_, &TrackPlayer::trackStopped, this, &Playback::onTrackStopped);
    connect(&player_, &TrackPlayer::allTracksStopped, this, [this] { --stopsUnderWay_; });
    connect(&player_, &TrackPlayer::loadingTrack, this, [this](int track, int tracks, int percent) {
        if (!isStopping())
            emit loading(track, tracks, percent);
    });
    connect(&player_, &TrackPlayer::tracksLoaded, this, &Playback::loaded);
    connect(&player_, &TrackPlayer::warned, this, &Playback::warned);
}

QString Playback::resolvedName(const QString &name) const
{
    const auto &instruments = catalogue_.instruments();
    for (const auto &candidate : {name, defaultInstrument_}) {
        if (instruments.contains(candidate))
            return candidate;
    }
    return instruments.names().value(0);
}

Instrument Playback::instrument(const QString &name) const
{
    const auto resolved = resolvedName(name);
    return resolved.isEmpty() ? Instrument() : catalogue_.instruments().instrument(resolved);
}

QString Playback::instrumentNameFor(const Track &track) const
{
    const auto named = HeaderFields::instrumentName(track.headerFields(QStringLiteral("I")));
    const auto resolved = resolvedName(named);
    if (!named.isEmpty() && named != resolved)
        qWarning("%s: there is no instrument '%s'", qUtf8Printable(track.title()), qUtf8Printable(named));
    return resolved;
}

bool Playback::hasSound() const
{
    const auto &song = list_.song();
    const auto hasNotes = [](const auto &track) { return track->track->length() > 0; };
    const auto sounds = [&](const auto &track) { return hasNotes(track) && hasSamples(instrument(track->instrument)); };
    return std::none_of(song.begin(), song.end(), hasNotes) || std::any_of(song.begin(), song.end(), sounds);
}

template<typename Change>
void Playback::tellPlaying(Change change)
{
    const bool wasPlaying = isPlaying();
    change();
    if (isPlaying() != wasPlaying)
        emit playingChanged(!wasPlaying);
}

void Playback::play(Ticks from)
{
    stop();
    throwDice();
    QVector<PlayRequest> requests;
    for (const auto &track : list_.song())
        requests.append(requestFor(*track, PlayRequest::Begin::AtTheStart, from));
    player_.playTracks(requests + clicksFor(from));
    tellPlaying([this] { isStarting_ = !list_.isEmpty(); });
}

void Playback::stop()
{
    ++stopsUnderWay_;
    player_.stopAll();
    emit loaded();
    tellPlaying([this] { isStarting_ = false; });
}

void Playback::seek(Ticks position)
{
    player_.seekSynced(quint64(position), syncGroup);
}

void Playback::setLoop(const std::optional<LoopRegion> &region)
{
    player_.setLoop(region);
}

void Playback::setTempoFactor(double factor)
{
    player_.setTempoFactor(std::clamp(factor, 0.25, 2.0));
}

void Playback::throwDice()
{
    if (!rehearsal_.isOn || !rehearsal_.isDiced)
        return;
    rehearsal_.offsets.clear();
    for (const auto &track : list_.song())
        rehearsal_.offsets.insert(track->id, rehearsal_.dice());
}

void Playback::setRehearsal(const Rehearsal &rehearsal)
{
    const bool isSwitchedOn = rehearsal.isOn && !rehearsal_.isOn;
    rehearsal_ = rehearsal;
    if (isSwitchedOn && isPlaying())
        throwDice();
    for (const auto &track : list_.song())
        player_.setOffset(track->id, offsetOf(*track));
}

// The beats are heard from where the song is.
void Playback::setMetronome(const Metronome &metronome)
{
    const auto before = std::exchange(metronome_, metronome);
    if (metronome.volume != before.volume)
        player_.setVolume(metronomeId, gainOf(metronome.volume));
    if (metronome.isOn == before.isOn || !isPlaying())
        return;
    counted_.reset();
    if (metronome.isOn)
        followBeats();
    else
        player_.stopTrack(metronomeId);
}

void Playback::followBeats()
{
    const auto leader = list_.leader();
    if (!metronome_.isOn || !leader || (leader->track == counted_ && beatsEnd() == countedLength_))
        return;
    counted_ = leader->track;
    countedLength_ = beatsEnd();
    const auto beats = ClickTrack::beats(*counted_, countedLength_);
    player_.playTrack(clicks(beats, PlayRequest::Begin::WithTheGroup));
}

bool Playback::isMetronome(const QString &trackId)
{
    return trackId == metronomeId;
}

Ticks Playback::beatsEnd() const
{
    constexpr Ticks room = 1000 * ticksPerWholeNote;
    return list_.commonLength() + (isRecording_ ? room : 0);
}

PlayRequest Playback::clicks(const Track &beats, PlayRequest::Begin begin, Ticks from) const
{
    return {.trackId = metronomeId,
            .track = beats,
            .instrument = ClickTrack::instrument(),
            .level = {gainOf(metronome_.volume), 0},
            .syncGroup = syncGroup,
            .begin = begin,
            .from = from};
}

QVector<PlayRequest> Playback::clicksFor(Ticks from)
{
    using Begin = PlayRequest::Begin;
    QVector<PlayRequest> requests;
    const auto leader = list_.leader();
    if (!leader)
        return requests;
    counted_ = leader->track;
    countedLength_ = beatsEnd();
    const auto countIn = ClickTrack::countIn(*counted_, from, metronome_.countIn);
    if (countIn.length() > 0)
        requests.append(clicks(countIn, Begin::BeforeTheOthers));
    if (metronome_.isOn)
        requests.append(clicks(ClickTrack::beats(*counted_, countedLength_), Begin::AtTheStart, from));
    return requests;
}

void Playback::setStandIns(const QHash<QString, std::shared_ptr<const Track>> &tracks)
{
    const auto before = std::exchange(standIns_, tracks);
    QVector<PlayRequest> joining;
    for (const auto &track : list_.song()) {
        if (before.value(track->id) != standIns_.value(track->id))
            joining.append(requestFor(*track, PlayRequest::Begin::WithTheGroup));
    }
    if (isPlaying() && !joining.isEmpty())
        player_.playTracks(joining);
    emit standInsChanged();
}

PlayRequest Playback::requestFor(const SongTrack &track, PlayRequest::Begin begin, Ticks from) const
{
    return {.trackId = track.id,
            .track = *standIns_.value(track.id, track.track),
            .instrument = instrument(track.instrument),
            .level = {gainOf(track.volume), gainOf(track.pan)},
            .syncGroup = syncGroup,
            .isMuted = track.isMuted,
            .begin = begin,
            .from = from,
            .offset = offsetOf(track)};
}

void Playback::follow(const SongTracks &before, const SongTracks &after)
{
    if (!isPlaying())
        return;
    const auto old = byId(before);
    const auto now = byId(after);
    QVector<PlayRequest> joining;
    for (const auto &track : after) {
        const auto previous = old.value(track->id);
        if (previous && previous->track == track->track) {
            followTrack(*previous, *track);
            continue;
        }
        joining.append(requestFor(*track, PlayRequest::Begin::WithTheGroup));
    }
    if (!joining.isEmpty())
        player_.playTracks(joining);
    for (const auto &track : before) { // at last, so that the others can join those that leave
        if (!now.contains(track->id))
            player_.stopTrack(track->id);
    }
    followBeats();
}

void Playback::followTrack(const SongTrack &before, const SongTrack &after)
{
    if (before.instrument != after.instrument)
        player_.changeInstrument(after.id, instrument(after.instrument));
    if (before.isMuted != after.isMuted)
        player_.muteTrack(after.id, after.isMuted);
    if (before.volume != after.volume)
        player_.setVolume(after.id, gainOf(after.volume));
    if (before.pan != after.pan)
        player_.setPan(after.id, gainOf(after.pan));
    if (before.startOffset != after.startOffset)
        player_.setOffset(after.id, offsetOf(after));
}

void Playback::onTrackStarted(const QString &id)
{
    tellPlaying([&] {
        playing_.insert(id);
        if (!isStopping())
            isStarting_ = false;
    });
}

void Playback::onTrackStopped(const QString &id)
{
    tellPlaying([&] { playing_.remove(id); });
    const bool isSongOver = playing_ == QSet<QString>{metronomeId} && !isRecording_;
    if (isSongOver && !isStopping()) // otherwise it is stopped, too, and may be another one by now
        player_.stopTrack(metronomeId);
}
