#include "app/services/Playback.h"

#include "audio/TrackPlayer.h"
#include "core/HeaderFields.h"

#include <algorithm>

namespace {

const QString syncGroup = QStringLiteral("Main");

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
    connect(&player_, &TrackPlayer::precacheProgress, this, &Playback::onPrecacheProgress);
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
    for (const auto &track : list_.song())
        precache(*track);
    for (const auto &track : list_.song())
        start(*track, PlayRequest::Begin::AtTheStart);
    if (from > 0)
        seek(from);
    tellPlaying([this] { isStarting_ = !list_.isEmpty(); });
}

void Playback::stop()
{
    ++stopsUnderWay_;
    player_.stopAll();
    finishLoading();
    tellPlaying([this] { isStarting_ = false; });
}

void Playback::precache(const SongTrack &track)
{
    ++toPrecache_;
    player_.precacheInstrument(instrument(track.instrument), *track.track);
}

void Playback::finishLoading()
{
    precached_ = 0;
    toPrecache_ = 0;
    emit loaded();
}

void Playback::onPrecacheProgress(int done, int total)
{
    if (stopsUnderWay_ > 0) // it is about what was stopped
        return;
    if (done < total)
        emit loading(precached_ + 1, toPrecache_, 100 * done / total);
    else if (++precached_ == toPrecache_)
        finishLoading();
}

void Playback::seek(Ticks position)
{
    player_.seekSynced(quint64(position), syncGroup);
}

void Playback::start(const SongTrack &track, PlayRequest::Begin begin)
{
    player_.playTrack({.trackId = track.id,
                       .track = *track.track,
                       .instrument = instrument(track.instrument),
                       .level = {gainOf(track.volume), gainOf(track.pan)},
                       .syncGroup = syncGroup,
                       .isMuted = track.isMuted,
                       .begin = begin});
}

void Playback::follow(const SongTracks &before, const SongTracks &after)
{
    if (!isPlaying())
        return;
    const auto old = byId(before);
    const auto now = byId(after);
    for (const auto &track : after) {
        const auto previous = old.value(track->id);
        if (previous && previous->track == track->track) {
            followTrack(*previous, *track);
            continue;
        }
        precache(*track);
        start(*track, PlayRequest::Begin::WithTheGroup);
    }
    for (const auto &track : before) { // at last, so that the others can join those that leave
        if (!now.contains(track->id))
            player_.stopTrack(track->id);
    }
}

void Playback::followTrack(const SongTrack &before, const SongTrack &after)
{
    if (before.instrument != after.instrument) {
        precache(after);
        player_.changeInstrument(after.id, instrument(after.instrument));
    }
    if (before.isMuted != after.isMuted)
        player_.muteTrack(after.id, after.isMuted);
    if (before.volume != after.volume)
        player_.setVolume(after.id, gainOf(after.volume));
    if (before.pan != after.pan)
        player_.setPan(after.id, gainOf(after.pan));
}

void Playback::onTrackStarted(const QString &id)
{
    tellPlaying([&] {
        playing_.insert(id);
        if (stopsUnderWay_ == 0)
            isStarting_ = false;
    });
}

void Playback::onTrackStopped(const QString &id)
{
    tellPlaying([&] { playing_.remove(id); });
}
