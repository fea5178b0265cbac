#include "ui/importing/PreviewPlayer.h"

#include "audio/TrackPlayer.h"
#include "song/preview/ImportPreview.h"

#include <QUuid>

PreviewPlayer::PreviewPlayer(const ImportPreview &preview, const InstrumentSet &instruments, EngineFactory makeEngine,
                             QObject *parent)
    : QObject(parent), preview_(preview), instruments_(instruments), makeEngine_(std::move(makeEngine))
{
    connect(&preview_, &ImportPreview::partsChanged, this, &PreviewPlayer::stop);
    connect(&preview_, &ImportPreview::partChanged, this, &PreviewPlayer::follow);
    connect(&preview_, &ImportPreview::takenChanged, this, &PreviewPlayer::stopWhatIsNotTaken);
}

PreviewPlayer::~PreviewPlayer() = default;

void PreviewPlayer::makePlayer()
{
    if (player_)
        return;
    player_ = std::make_unique<TrackPlayer>(makeEngine_);
    connect(player_.get(), &TrackPlayer::trackStopped, this, &PreviewPlayer::onStopped);
}

void PreviewPlayer::play(const QVector<int> &parts)
{
    stop();
    makePlayer();
    group_ = QStringLiteral("ImportPreview/") + QUuid::createUuid().toString();
    for (const int part : parts)
        parts_.insert(QStringLiteral("%1/%2").arg(group_).arg(part), part);
    QVector<PlayRequest> requests;
    for (const int part : parts)
        requests.append(requestFor(part, PlayRequest::Begin::AtTheStart));
    player_->playTracks(requests);
    if (isPlaying())
        emit playingChanged(true);
}

PlayRequest PreviewPlayer::requestFor(int part, PlayRequest::Begin begin) const
{
    const auto name = preview_.instrument(part);
    return {.trackId = parts_.key(part),
            .track = preview_.parts()[part].track(),
            .instrument = instruments_.contains(name) ? instruments_.instrument(name) : Instrument(),
            .syncGroup = group_,
            .begin = begin};
}

void PreviewPlayer::follow(int part)
{
    const auto id = parts_.key(part);
    if (!id.isEmpty())
        player_->playTrack(requestFor(part, PlayRequest::Begin::WithTheGroup));
}

// One by itself may be heard in any case.
void PreviewPlayer::stopWhatIsNotTaken()
{
    for (auto each = parts_.cbegin(); parts_.size() > 1 && each != parts_.cend(); ++each) {
        if (!preview_.isTaken(*each))
            player_->stopTrack(each.key());
    }
}

void PreviewPlayer::stop()
{
    if (!isPlaying())
        return;
    parts_.clear();
    player_->stopAll();
    emit playingChanged(false);
}

void PreviewPlayer::onStopped(const QString &id)
{
    if (parts_.remove(id) > 0 && parts_.isEmpty())
        emit playingChanged(false);
}
