#include "ui/importing/PreviewPlayer.h"

#include "song/preview/ImportPreview.h"

PreviewPlayer::PreviewPlayer(const ImportPreview &preview, const InstrumentSet &instruments, EngineFactory makeEngine,
                             QObject *parent)
    : QObject(parent), preview_(preview), instruments_(instruments), player_(std::move(makeEngine))
{
    connect(&preview_, &ImportPreview::partsChanged, this, &PreviewPlayer::stop);
    connect(&preview_, &ImportPreview::partChanged, this, [this](int part) { player_.follow(part, heard(part)); });
    connect(&preview_, &ImportPreview::takenChanged, this, &PreviewPlayer::stopWhatIsNotTaken);
    connect(&player_, &GroupPlayer::playingChanged, this, &PreviewPlayer::playingChanged);
}

void PreviewPlayer::play(const QVector<int> &parts)
{
    QMap<int, HeardPart> group;
    for (const int part : parts)
        group.insert(part, heard(part));
    player_.play(group);
}

HeardPart PreviewPlayer::heard(int part) const
{
    const auto name = preview_.instrument(part);
    return {preview_.parts()[part].track(), instruments_.contains(name) ? instruments_.instrument(name) : Instrument()};
}

// One by itself may be heard in any case.
void PreviewPlayer::stopWhatIsNotTaken()
{
    const auto playing = player_.playing();
    for (const int part : playing) {
        if (playing.size() > 1 && !preview_.isTaken(part))
            player_.stop(part);
    }
}
