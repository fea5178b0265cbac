// The window's part between the rows, the song and the player.

#include "app/MainWindow.h"
#include "app/services/RecentFiles.h"
#include "ui/song/TrackRows.h"
#include "ui/song/TrackWidget.h"
#include "ui/song/VUMeter.h"

#include <QLabel>
#include <QStatusBar>

void MainWindow::connectRow(const QString &id, TrackWidget *row)
{
    connect(row, &TrackWidget::trackMuteChanged, this, [=, this] { onTrackMuteChanged(id); });
    connect(row, &TrackWidget::trackSolo, this, [=, this] { onTrackSolo(id); });
    connect(row, &TrackWidget::trackInstrumentChanged, this, [=, this] { onTrackInstrumentChanged(id); });
    connect(row, &TrackWidget::trackVolumeChanged, this, [=, this] { onTrackVolumeChanged(id); });
    connect(row, &TrackWidget::trackPanChanged, this, [=, this] { onTrackPanChanged(id); });
    connect(row, &TrackWidget::trackRemoved, this, [=, this] { onTrackRemoved(id); });
    connect(row, &TrackWidget::trackChanged, this, [=, this] { onTrackChanged(id); });
    connect(row, &TrackWidget::trackSeek, this, &MainWindow::onTrackSeek);
    connect(row, &TrackWidget::trackMoveUp, this, [=, this] { onMoveTrackUp(id); });
    connect(row, &TrackWidget::trackMoveDown, this, [=, this] { onMoveTrackDown(id); });
    connect(row, &TrackWidget::trackSelected, this,
            [=, this](bool isSelected) { onTrackSelectionChanged(id, isSelected); });
    connect(row, &TrackWidget::previewNote, this, [=, this](int semitone) { onPreviewNote(id, semitone); });
    connect(row, &TrackWidget::stopPreview, this, &MainWindow::onStopPreview);
    connect(row, &TrackWidget::editorRequested, this, [=, this] { editors_.open(id); });
    connect(row, &TrackWidget::trackSaved, this, [=, this](const QString &path) {
        tracks_.markSaved(id, path);
        RecentFiles::add(settings_, path);
    });
}

void MainWindow::onTrackMuteChanged(const QString &trackId)
{
    tracks_.setMuted({trackId}, rows_->row(trackId)->isMuted());
}

void MainWindow::onTrackSolo(const QString &trackId)
{
    tracks_.solo(trackId);
}

void MainWindow::onTrackInstrumentChanged(const QString &trackId)
{
    tracks_.setInstrument({trackId}, rows_->row(trackId)->instrumentName());
}

void MainWindow::onTrackVolumeChanged(const QString &trackId)
{
    tracks_.setVolume(trackId, rows_->row(trackId)->volumePercent());
}

void MainWindow::onTrackPanChanged(const QString &trackId)
{
    tracks_.setPan(trackId, rows_->row(trackId)->panPercent());
}

void MainWindow::onTrackRemoved(const QString &trackId)
{
    tracks_.remove(tr("Remove Track"), {trackId});
}

void MainWindow::onTrackChanged(const QString &trackId)
{
    const auto *const row = rows_->row(trackId);
    tracks_.setTrack(row->changeName(), trackId, row->track());
}

// A track that was removed meanwhile comes back as a new one, which its editor belongs to from then on.
void MainWindow::onEdited(const QString &trackId, const Track &track)
{
    if (auto *const row = rows_->row(trackId)) {
        row->onTrackChanged(track);
        return;
    }
    auto unsaved = track;
    unsaved.setFilePath({}); // which holds the track as it was
    const auto ids = tracks_.add(tr("Edit Track"), {{unsaved, instrumentFor(track)}});
    editors_.reassign(trackId, ids.first());
}

void MainWindow::onTrackSeek(qint64 ticks)
{
    playback_.seek(ticks);
}

void MainWindow::onMoveTrackUp(const QString &trackId)
{
    tracks_.move(trackId, int(tracks_.ids().indexOf(trackId)) - 1);
}

void MainWindow::onMoveTrackDown(const QString &trackId)
{
    tracks_.move(trackId, int(tracks_.ids().indexOf(trackId)) + 1);
}

void MainWindow::onTrackSelectionChanged(const QString &trackId, bool isSelected)
{
    tracks_.setSelected(trackId, isSelected);
}

void MainWindow::onPreviewNote(const QString &trackId, int semitone)
{
    if (const auto *const track = tracks_.find(trackId))
        player_.playPreviewNote(playback_.instrument(track->instrument), quint32(semitone));
}

void MainWindow::onStopPreview()
{
    player_.stopPreviewNote();
}

void MainWindow::connectPlayer()
{
    connect(&player_, &TrackPlayer::trackStarted, this, &MainWindow::onTrackStarted);
    connect(&player_, &TrackPlayer::trackStopped, this, &MainWindow::onTrackStopped);
    connect(&player_, &TrackPlayer::allTracksStopped, this, &MainWindow::onAllTracksStopped);
    connect(&player_, &TrackPlayer::trackPositionChanged, this, &MainWindow::onTrackPositionChanged);
    connect(&player_, &TrackPlayer::masterMeter, this, &MainWindow::onMasterMeter);
    connect(&player_, &TrackPlayer::trackMeter, this, &MainWindow::onTrackMeter);
    connect(&player_, &TrackPlayer::notePressed, this, &MainWindow::onNotePressed);
    connect(&player_, &TrackPlayer::noteReleased, this, &MainWindow::onNoteReleased);
    connect(&player_, &TrackPlayer::loadingSample, this, &MainWindow::onLoadingSample);
    connect(&player_, &TrackPlayer::outputChanged, outputProblem_, [this](const QString &problem) {
        outputProblem_->setText(problem);
        outputProblem_->setVisible(!problem.isEmpty());
    });
}

void MainWindow::onTrackStarted(const QString &trackId)
{
    if (auto *const row = rows_->row(trackId))
        row->releaseAllNotes();
}

void MainWindow::onTrackStopped(const QString &trackId)
{
    if (auto *const row = rows_->row(trackId)) {
        row->releaseAllNotes();
        row->setLevels(0, 0, 0, 0);
        row->setPosition(0);
    }
}

void MainWindow::onAllTracksStopped()
{
    masterMeter_->setLevels(0, 0, 0);
    masterMeter_->setLevels(1, 0, 0);
}

void MainWindow::onTrackPositionChanged(const QString &trackId, quint64 position)
{
    if (auto *const row = rows_->row(trackId))
        row->setPosition(Ticks(position));
}

void MainWindow::onMasterMeter(float leftRMS, float rightRMS, float leftPeak, float rightPeak)
{
    masterMeter_->setLevels(0, leftRMS, leftPeak);
    masterMeter_->setLevels(1, rightRMS, rightPeak);
}

void MainWindow::onTrackMeter(const QString &trackId, float leftRMS, float rightRMS, float leftPeak, float rightPeak)
{
    if (auto *const row = rows_->row(trackId))
        row->setLevels(leftRMS, rightRMS, leftPeak, rightPeak);
}

void MainWindow::onNotePressed(const QString &trackId, int eventIndex)
{
    if (auto *const row = rows_->row(trackId))
        row->notePressed(eventIndex);
}

void MainWindow::onNoteReleased(const QString &trackId, int eventIndex)
{
    if (auto *const row = rows_->row(trackId))
        row->noteReleased(eventIndex);
}

void MainWindow::onLoadingSample(const QString &samplePath)
{
    statusBar()->showMessage(QStringLiteral("Loading sample %1...").arg(samplePath), 3000);
}
