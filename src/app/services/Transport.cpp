#include "app/services/Transport.h"

#include "app/services/Playback.h"

#include <algorithm>

namespace {

constexpr int clockRate = 48000; // as fine as what is heard

} // namespace

Transport::Transport(const TrackList &tracks, Playback &playback, QObject *parent)
    : QObject(parent), tracks_(tracks), playback_(playback)
{
    connect(&tracks_, &TrackList::songChanged, this, &Transport::followSong);
    connect(&playback_, &Playback::playingChanged, this, &Transport::followPlaying);
}

qint64 Transport::milliseconds(Ticks tick) const
{
    return qint64(tempo_.samplesAt(tick) / (clockRate / 1000));
}

void Transport::followSong()
{
    const auto leader = tracks_.leader();
    leader_ = leader ? leader->id : QString();
    const auto counted = leader ? leader->track : nullptr;
    if (counted != counted_) {
        counted_ = counted;
        measures_ = counted ? Measures(*counted) : Measures();
        tempo_ = counted ? TempoMap(*counted, clockRate) : TempoMap();
        emit measuresChanged();
    }
    if (position_ > tracks_.commonLength() && !playback_.isPlaying())
        setPosition(position_);
    else
        moveTo(position_); // which may be another place in the measures
}

void Transport::moveTo(Ticks position)
{
    position_ = position;
    emit positionChanged(position);
}

void Transport::setPosition(Ticks position)
{
    mark_ = std::clamp(position, Ticks(0), tracks_.commonLength());
    afterwards_ = mark_;
    if (playback_.isPlaying())
        playback_.seek(mark_);
    moveTo(mark_);
}

void Transport::goToEnd()
{
    setPosition(tracks_.commonLength());
}

void Transport::goMeasureBack()
{
    // While it plays, the start that has just gone by is left, so that going back twice goes back two measures.
    const auto grace = playback_.isPlaying() ? measures_.at(position_).beat / 2 : 0;
    setPosition(measures_.previousStart(position_ - grace));
}

void Transport::goMeasureForward()
{
    setPosition(measures_.nextStart(position_));
}

void Transport::play()
{
    const auto from = playback_.isPlaying() ? mark_ : position_;
    moveTo(from < tracks_.commonLength() ? from : 0);
    afterwards_ = mark_;
    playback_.play(position_);
}

void Transport::playOrPause()
{
    if (!playback_.isPlaying())
        return play();
    afterwards_ = position_;
    playback_.stop();
}

void Transport::stop()
{
    if (playback_.isPlaying()) {
        afterwards_ = mark_;
        playback_.stop();
    } else {
        setPosition(position_ == mark_ ? 0 : mark_);
    }
}

bool Transport::canStop() const
{
    return playback_.isPlaying() || position_ > 0;
}

void Transport::report(const QString &trackId, Ticks position)
{
    if (trackId == leader_ && playback_.isPlaying())
        moveTo(position);
}

void Transport::followPlaying(bool isPlaying)
{
    if (isPlaying)
        return;
    const auto length = tracks_.commonLength(); // which may be another one by now
    mark_ = std::min(mark_, length);
    moveTo(std::min(afterwards_, length));
}
