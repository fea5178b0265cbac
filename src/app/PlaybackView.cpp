#include "app/PlaybackView.h"

#include "ui/song/SongArea.h"
#include "ui/song/TrackRows.h"
#include "ui/song/TrackWidget.h"
#include "ui/song/VUMeter.h"

void PlaybackView::start(const QString &trackId)
{
    if (auto *const row = rows_.row(trackId))
        row->releaseAllNotes();
}

void PlaybackView::stop(const QString &trackId)
{
    if (auto *const row = rows_.row(trackId)) {
        row->releaseAllNotes();
        row->setLevels(0, 0, 0, 0);
    }
}

void PlaybackView::stopAll()
{
    setMasterLevels(0, 0, 0, 0);
}

void PlaybackView::setPosition(const QString &trackId, Ticks position)
{
    if (auto *const row = rows_.row(trackId))
        row->setPosition(position);
}

void PlaybackView::setPosition(Ticks position, qint64 milliseconds, bool isPlaying)
{
    area_.setPosition(position, milliseconds, isPlaying ? SongArea::Moves::AsPlayed : SongArea::Moves::AsSet);
    if (!isPlaying)
        rows_.setPosition(position);
}

void PlaybackView::setMasterLevels(float leftRms, float rightRms, float leftPeak, float rightPeak)
{
    masterMeter_.setLevels(0, leftRms, leftPeak);
    masterMeter_.setLevels(1, rightRms, rightPeak);
}

void PlaybackView::setLevels(const QString &trackId, float leftRms, float rightRms, float leftPeak, float rightPeak)
{
    if (auto *const row = rows_.row(trackId))
        row->setLevels(leftRms, rightRms, leftPeak, rightPeak);
}

void PlaybackView::pressNote(const QString &trackId, int eventIndex)
{
    if (auto *const row = rows_.row(trackId))
        row->notePressed(eventIndex);
}

void PlaybackView::releaseNote(const QString &trackId, int eventIndex)
{
    if (auto *const row = rows_.row(trackId))
        row->noteReleased(eventIndex);
}
