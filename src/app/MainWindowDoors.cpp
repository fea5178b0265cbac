// The window's slots but those about what is heard, each a door to what it is about.

#include "app/MainWindow.h"
#include "ui/song/SongArea.h"
#include "ui/song/TrackRows.h"
#include "ui/song/TrackWidget.h"
#include "ui/song/VUMeter.h"

#include <QStatusBar>

void MainWindow::onLoadABC()
{
    import_.openAbc();
}

void MainWindow::onExportWav()
{
    export_.exportWav();
}

void MainWindow::onExportAudio()
{
    export_.exportAudio();
}

void MainWindow::onExportMidi()
{
    notationExport_.exportMidi();
}

void MainWindow::onExportTunebook()
{
    notationExport_.exportTunebook();
}

void MainWindow::onImportMidi()
{
    import_.importMidi();
}

void MainWindow::onAbout()
{
    program_.showAbout();
}

void MainWindow::onNewTrack()
{
    trackCommands_.addEmpty();
}

void MainWindow::onClearTracks()
{
    trackCommands_.removeAll();
}

void MainWindow::onPreferences()
{
    program_.editPreferences();
}

void MainWindow::onApplyInstrument()
{
    instrumentCommands_.apply();
}

void MainWindow::onMergeTracks()
{
    trackCommands_.mergeSelected();
}

void MainWindow::onRemoveSelectedTracks()
{
    trackCommands_.removeSelected();
}

void MainWindow::onImportClipboard()
{
    import_.importClipboard();
}

void MainWindow::onImportAgain()
{
    import_.importAgain();
}

void MainWindow::onSelectAll()
{
    tracks_.selectAll();
}

void MainWindow::onDeselectAll()
{
    tracks_.deselectAll();
}

void MainWindow::onInvertSelection()
{
    tracks_.invertSelection();
}

void MainWindow::onDuplicateTracks()
{
    trackCommands_.duplicateSelected();
}

void MainWindow::onCheckUpdates()
{
    updates_.check();
}

void MainWindow::onSaveSelected()
{
    save_.saveSelected();
}

void MainWindow::onSaveAll()
{
    save_.saveAll();
}

void MainWindow::onNewSong()
{
    songs_.startNew();
}

void MainWindow::onSaveSong()
{
    songs_.save();
}

void MainWindow::onSaveSongAs()
{
    songs_.saveAs();
}

void MainWindow::onSaveParts()
{
    songs_.savePartsToFolder();
}

void MainWindow::onSongTitle()
{
    songs_.editTitle();
}

void MainWindow::onRecover()
{
    recovery_.open();
}

void MainWindow::onMuteSelected()
{
    trackCommands_.muteSelected();
}

void MainWindow::onNextTrack()
{
    area_->showRow(rows_->goBy(1));
}

void MainWindow::onPreviousTrack()
{
    area_->showRow(rows_->goBy(-1));
}

void MainWindow::onRenameTrack()
{
    rows_->current()->onChangeTitle();
}

void MainWindow::onEditTrack()
{
    rows_->current()->onEditABCClicked();
}

void MainWindow::onSoloTrack()
{
    emit rows_->current()->trackSolo();
}

void MainWindow::onMoveUp()
{
    emit rows_->current()->trackMoveUp();
}

void MainWindow::onMoveDown()
{
    emit rows_->current()->trackMoveDown();
}

void MainWindow::onDescribeTrack()
{
    const auto *const row = rows_->current();
    statusBar()->showMessage(QStringLiteral("%1: %2").arg(row->accessibleName(), row->spokenDescription()));
}

void MainWindow::onCopyAsFile()
{
    emit rows_->current()->copyRequested();
}

void MainWindow::copyAsFiles(const QStringList &ids)
{
    constexpr int shownMs = 3000;
    partFiles_.copy(ids);
    statusBar()->showMessage(tr("Copied %n part(s) as ABC files", nullptr, int(ids.size())), shownMs);
}

void MainWindow::onForgetClips()
{
    rows_->forgetClips();
    masterMeter_->forgetClips();
}

void MainWindow::onShortcuts()
{
    program_.editShortcuts(actions_.keyRows() + EditorWindows::keyRows());
}

void MainWindow::onCleanQuantise()
{
    trackCommands_.cleanQuantiseSelected();
}

void MainWindow::onDonate()
{
    program_.openDonationPage();
}

void MainWindow::onManual()
{
    program_.openManual();
}

void MainWindow::onWebsite()
{
    program_.openWebsite();
}

void MainWindow::onDefaultInstrumentChanged(const QString &name)
{
    instrumentCommands_.setDefault(name);
    showStandIn();
}

void MainWindow::onTrackMuteChanged(const QString &trackId)
{
    tracks_.setMuted(tracks_.withSelection(trackId), rows_->row(trackId)->isMuted());
}

void MainWindow::onTrackSolo(const QString &trackId)
{
    tracks_.solo(tracks_.withSelection(trackId));
}

void MainWindow::onTrackInstrumentChanged(const QString &trackId)
{
    tracks_.setInstrument(tracks_.withSelection(trackId), rows_->row(trackId)->instrumentName());
}

void MainWindow::onTrackVolumeChanged(const QString &trackId)
{
    tracks_.setVolume(tracks_.withSelection(trackId), rows_->row(trackId)->volumePercent());
}

void MainWindow::onTrackPanChanged(const QString &trackId)
{
    tracks_.setPan(tracks_.withSelection(trackId), rows_->row(trackId)->panPercent());
}

void MainWindow::onTrackRemoved(const QString &trackId)
{
    tracks_.remove(tr("Remove Track"), {trackId});
}

void MainWindow::onTrackChanged(const QString &trackId, const QString &step, const Track &wanted)
{
    tracks_.setTrack(step, trackId, wanted);
}

void MainWindow::onMoveTrackUp(const QString &trackId)
{
    trackCommands_.moveBy(trackId, -1);
}

void MainWindow::onMoveTrackDown(const QString &trackId)
{
    trackCommands_.moveBy(trackId, 1);
}

void MainWindow::onTrackTransposed(const QString &trackId, int semitones)
{
    trackCommands_.transpose(trackId, semitones);
}

void MainWindow::onTrackSelectionChanged(const QString &trackId, bool isSelected, Qt::KeyboardModifiers modifiers)
{
    trackCommands_.select(trackId, isSelected, modifiers);
}

void MainWindow::onRenderStarted()
{
    export_.openProgress();
}

void MainWindow::onRenderProgress(quint64 progress, quint64 total)
{
    export_.setProgress(progress, total);
}

void MainWindow::onRenderFinished()
{
    export_.closeProgress();
}

void MainWindow::onUpdateAvailable(bool available, const QString &newVer, const QString &address)
{
    program_.tellAboutUpdate(available, newVer, address);
}

void MainWindow::onUpdateFailed(const QString &error)
{
    program_.tellUpdateFailure(error);
}

void MainWindow::onArrange()
{
    songTools_.arrangeForPlayers();
}

void MainWindow::onTransposeSong()
{
    songTools_.transposeSong();
}

void MainWindow::onOneTempo()
{
    songTools_.giveOneTempo();
}

void MainWindow::onTrimSilence()
{
    songTools_.trimSilence();
}

void MainWindow::onPadParts()
{
    songTools_.padParts();
}

void MainWindow::onListenToSource(bool isOn)
{
    sourceListening_.listenToSource(isOn);
}
