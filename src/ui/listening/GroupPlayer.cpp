#include "ui/listening/GroupPlayer.h"

#include "audio/player/TrackPlayer.h"

#include <QUuid>

GroupPlayer::GroupPlayer(EngineFactory makeEngine, QObject *parent)
    : QObject(parent), makeEngine_(std::move(makeEngine))
{
}

GroupPlayer::~GroupPlayer() = default;

void GroupPlayer::play(const QMap<int, HeardPart> &parts)
{
    stop();
    if (!player_) {
        player_ = std::make_unique<TrackPlayer>(makeEngine_);
        connect(player_.get(), &TrackPlayer::trackStopped, this, &GroupPlayer::onStopped);
    }
    group_ = QStringLiteral("Group/") + QUuid::createUuid().toString();
    QVector<PlayRequest> requests;
    for (auto part = parts.begin(); part != parts.end(); ++part) {
        const auto id = QStringLiteral("%1/%2").arg(group_).arg(part.key());
        numbers_.insert(id, part.key());
        requests.append(requestFor(id, *part, PlayRequest::Begin::AtTheStart));
    }
    player_->playTracks(requests);
    if (isPlaying())
        emit playingChanged(true);
}

PlayRequest GroupPlayer::requestFor(const QString &id, const HeardPart &part, PlayRequest::Begin begin) const
{
    return {.trackId = id,
            .track = part.track,
            .instrument = part.instrument,
            .level = part.level,
            .syncGroup = group_,
            .begin = begin};
}

void GroupPlayer::follow(int number, const HeardPart &part)
{
    const auto id = numbers_.key(number);
    if (!id.isEmpty())
        player_->playTrack(requestFor(id, part, PlayRequest::Begin::WithTheGroup));
}

void GroupPlayer::stop(int number)
{
    const auto id = numbers_.key(number);
    if (!id.isEmpty())
        player_->stopTrack(id);
}

void GroupPlayer::stop()
{
    if (!isPlaying())
        return;
    numbers_.clear();
    player_->stopAll();
    emit playingChanged(false);
}

void GroupPlayer::onStopped(const QString &id)
{
    if (numbers_.remove(id) > 0 && numbers_.isEmpty())
        emit playingChanged(false);
}
