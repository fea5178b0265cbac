// The window's slots about what is heard, each a door to what it is about.

#include "app/MainWindow.h"
#include "ui/Dialogs.h"
#include "ui/song/SongArea.h"

#include <QAction>

namespace {

constexpr double zoomStep = 1.5;

} // namespace

void MainWindow::onPlay()
{
    transportCommands_.play();
}

void MainWindow::onPlayPause()
{
    recorder_.finish();
    transportCommands_.playOrPause();
}

void MainWindow::onStopAll()
{
    recorder_.finish();
    transport_.stop();
}

void MainWindow::onRecord(bool isOn)
{
    if (!isOn) {
        onStopAll();
    } else if (keyboard_.keyboard().openPort().isEmpty()) {
        showRecording(false);
        dialogs_.message(this, Dialogs::Severity::Warning, tr("Record"),
                         tr("No MIDI keyboard is connected.\nPlease plug one in, and see Tools, Preferences, Sound."));
    } else {
        playback_.stop();
        recorder_.start(session_.tempoFactor() / 100.0);
        if (tracks_.commonLength() > 0 || playback_.hasBeats())
            transport_.play();
    }
}

void MainWindow::showRecording(bool isRecording)
{
    actions_.find(QStringLiteral("actionRecord"))->setChecked(isRecording);
    status_.showRecording(isRecording);
    playback_.setRecording(isRecording);
}

void MainWindow::onGoToStart()
{
    transport_.setPosition(0);
}

void MainWindow::onGoToEnd()
{
    transport_.goToEnd();
}

void MainWindow::onMeasureBack()
{
    transport_.goMeasureBack();
}

void MainWindow::onMeasureForward()
{
    transport_.goMeasureForward();
}

void MainWindow::onLoop(bool isOn)
{
    transportCommands_.switchLoop(isOn);
    showLoop();
}

void MainWindow::onLoopBegin()
{
    transportCommands_.beginLoopHere();
    showLoop();
}

void MainWindow::onLoopEnd()
{
    transportCommands_.endLoopHere();
    showLoop();
}

void MainWindow::onLoopChosen(const TimeSpan &loop)
{
    transportCommands_.setLoop(loop);
    showLoop();
}

void MainWindow::onTempoFactorChanged(int percent)
{
    transportCommands_.setTempoFactor(percent);
}

void MainWindow::onMetronome(bool isOn)
{
    practice_.switchMetronome(isOn);
}

void MainWindow::onRehearsal(bool isOn)
{
    practice_.switchRehearsal(isOn);
}

void MainWindow::onRehearsalOffsets()
{
    if (practice_.chooseRehearsal())
        actions_.find(QStringLiteral("actionRehearsal"))->setChecked(true);
}

void MainWindow::onZoomIn()
{
    area_->zoomBy(zoomStep);
}

void MainWindow::onZoomOut()
{
    area_->zoomBy(1 / zoomStep);
}

void MainWindow::onZoomWhole()
{
    area_->showWhole();
}

void MainWindow::onFollow(bool isOn)
{
    area_->setFollowing(isOn);
}

void MainWindow::onMasterVolumeChanged(int percent)
{
    transportCommands_.setMasterVolume(percent);
    session_.setMasterVolume(percent);
}

void MainWindow::onTrackStarted(const QString &trackId)
{
    playbackView_.start(trackId);
}

void MainWindow::onTrackStopped(const QString &trackId)
{
    playbackView_.stop(trackId);
}

void MainWindow::onAllTracksStopped()
{
    playbackView_.stopAll();
}

void MainWindow::onTrackPositionChanged(const QString &trackId, quint64 position)
{
    if (playback_.isStopping())
        return;
    playbackView_.setPosition(trackId, Ticks(position));
    transport_.report(trackId, Ticks(position));
    if (Playback::isMetronome(trackId))
        recorder_.report(Ticks(position));
}

void MainWindow::onPositionChanged(qint64 position)
{
    playbackView_.setPosition(position, transport_.milliseconds(position), playback_.isPlaying());
    if (!playback_.isPlaying())
        updateActions();
}

void MainWindow::onMasterMeter(float leftRMS, float rightRMS, float leftPeak, float rightPeak)
{
    playbackView_.setMasterLevels(leftRMS, rightRMS, leftPeak, rightPeak);
}

void MainWindow::onTrackMeter(const QString &trackId, float leftRMS, float rightRMS, float leftPeak, float rightPeak)
{
    playbackView_.setLevels(trackId, leftRMS, rightRMS, leftPeak, rightPeak);
}

void MainWindow::onNotePressed(const QString &trackId, int eventIndex)
{
    if (!playback_.standIn(trackId)) // whose notes are not those of the row
        playbackView_.pressNote(trackId, eventIndex);
}

void MainWindow::onNoteReleased(const QString &trackId, int eventIndex)
{
    playbackView_.releaseNote(trackId, eventIndex);
}

void MainWindow::onTrackSeek(qint64 ticks)
{
    transport_.setPosition(ticks);
}

void MainWindow::onPreviewNote(const QString &trackId, int semitone)
{
    transportCommands_.previewNote(trackId, semitone);
}

void MainWindow::onStopPreview()
{
    player_.stopPreviewNote();
}

void MainWindow::onLoadingSample(const QString &samplePath)
{
    status_.showLoadingSample(samplePath);
}
