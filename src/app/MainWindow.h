#pragma once

#include "app/ImportReports.h"
#include "app/PlaybackView.h"
#include "app/SongFindings.h"
#include "app/StatusIndicators.h"
#include "app/commands/ImportCommands.h"
#include "app/commands/ImportQueue.h"
#include "app/commands/InstrumentCommands.h"
#include "app/commands/ProgramCommands.h"
#include "app/commands/SaveCommands.h"
#include "app/commands/SongCommands.h"
#include "app/commands/TrackCommands.h"
#include "app/commands/TransportCommands.h"
#include "app/commands/WindowActions.h"
#include "app/exporting/ExportCommands.h"
#include "app/exporting/NotationExport.h"
#include "app/exporting/PartFiles.h"
#include "app/keyboard/KeyRecorder.h"
#include "app/keyboard/LiveKeyboard.h"
#include "app/practice/PracticeCommands.h"
#include "app/recovery/SessionJournal.h"
#include "app/recovery/SongRecovery.h"
#include "app/services/ChangedFiles.h"
#include "app/services/EditorWindows.h"
#include "app/services/Playback.h"
#include "app/services/SongSession.h"
#include "app/services/SoundOutput.h"
#include "app/services/Transport.h"
#include "app/services/UpdateChecker.h"
#include "app/songtools/SongTools.h"
#include "app/songtools/SourceListening.h"
#include "assets/InstrumentSetModel.h"
#include "audio/player/TrackPlayer.h"
#include "settings/Settings.h"
#include "ui/tracks/TrackList.h"

#include <QMainWindow>

class ExportNote;
class InstrumentComboBox;
class QSlider;
class SongArea;
class TrackRows;
class TrackWidget;
class VUMeter;

// What the window is handed; the references outlive it.
struct WindowServices
{
    Settings &settings;
    Dialogs &dialogs;
    EngineFactory makeEngine;         // of the player
    FileEngineFactory makeFileEngine; // of exports
    QUrl updateAddress = UpdateChecker::releaseAddress();
    QString journalFolder = {}; // of what survives a crash; empty: nothing does
    std::shared_ptr<OutputControl> output = std::make_shared<OutputControl>(); // that the engines share
    MidiInputFactory makeMidiInput = {};                                       // empty: no keyboard is looked for
};

// The program's window: the tracks as a list of rows, with menus, toolbars and meters around it. It puts together what
// stands in classes of its own: the commands by their subjects, and what runs beside them. Its slots are doors to them.
class MainWindow : public QMainWindow
{
    Q_OBJECT

public:
    explicit MainWindow(const WindowServices &services, QWidget *parent = nullptr);
    ~MainWindow() override;

    TrackList &tracks() { return tracks_; }
    SongSession &session() { return session_; }

    // As if the user had dropped them: what is neither ABC nor MIDI nor a song by its name is skipped.
    void openFiles(const QStringList &paths) { import_.openFiles(paths); }
    // Songs that were lost in a crash.
    void offerRecovery() { recovery_.offerAtStart(); }

    // The window may be ended now: how it lies is remembered, and what is not saved can be brought back; false when it
    // cannot. Waits for the disk, but not long.
    bool keepForLater();
    // For a start that shows the same song again, by restore().
    struct Restart
    {
        QString journal;   // of what is not saved; may be empty
        QStringList files; // for when it is gone
    };
    Restart restart() const;
    void restore(const Restart &restart); // asks nothing
    // Asks whether to save; false: the song stays, to be saved or because it is wanted.
    bool mayLeave()
    {
        return songs_.mayLeave([] {});
    }

    // Whether files are still being read, or the game is still to be looked through for instruments.
    bool isLoading() const
    {
        return instruments_.instruments().isEmpty() || importQueue_.isBusy() || songs_.isOpening();
    }
    bool isSaving() const { return songs_.isSaving(); }

public slots:
    void onLoadABC();
    void onExportWav();
    void onExportAudio();
    void onExportMidi();
    void onExportTunebook();
    void onImportMidi();
    void onPlay();
    void onPlayPause();
    void onStopAll();
    void onRecord(bool isOn);
    void onGoToStart();
    void onGoToEnd();
    void onMeasureBack();
    void onMeasureForward();
    void onLoop(bool isOn);
    void onLoopBegin();
    void onLoopEnd();
    void onLoopChosen(const TimeSpan &loop);
    void onTempoFactorChanged(int percent);
    void onMetronome(bool isOn);
    void onRehearsal(bool isOn);
    void onRehearsalOffsets();
    void onZoomIn();
    void onZoomOut();
    void onZoomWhole();
    void onFollow(bool isOn);
    void onAbout();
    void onNewTrack();
    void onClearTracks();
    void onPreferences();
    void onApplyInstrument();
    void onMergeTracks();
    void onRemoveSelectedTracks();
    void onImportClipboard();
    void onImportAgain();
    void onSelectAll();
    void onDeselectAll();
    void onInvertSelection();
    void onDuplicateTracks();
    void onCheckUpdates();
    void onSaveSelected();
    void onSaveAll();
    void onNewSong();
    void onSaveSong();
    void onSaveSongAs();
    void onSaveParts();
    void onSongTitle();
    void onRecover();
    void onMuteSelected();
    void onNextTrack();
    void onPreviousTrack();
    void onRenameTrack();
    void onEditTrack();
    void onSoloTrack();
    void onMoveUp();
    void onMoveDown();
    void onDescribeTrack();
    void onCopyAsFile();
    void onForgetClips();
    void onShortcuts();
    void onCleanQuantise();
    void onArrange();
    void onTransposeSong();
    void onOneTempo();
    void onTrimSilence();
    void onPadParts();
    void onListenToSource(bool isOn);
    void onDonate();
    void onManual();
    void onWebsite();
    void onDefaultInstrumentChanged(const QString &name);
    void onMasterVolumeChanged(int percent);
    void onTrackStarted(const QString &trackId);
    void onTrackStopped(const QString &trackId);
    void onAllTracksStopped();
    void onTrackPositionChanged(const QString &trackId, quint64 position);
    void onPositionChanged(qint64 position);
    void onMasterMeter(float leftRMS, float rightRMS, float leftPeak, float rightPeak);
    void onTrackMeter(const QString &trackId, float leftRMS, float rightRMS, float leftPeak, float rightPeak);
    void onNotePressed(const QString &trackId, int eventIndex);
    void onNoteReleased(const QString &trackId, int eventIndex);
    void onTrackMuteChanged(const QString &trackId);
    void onTrackSolo(const QString &trackId);
    void onTrackInstrumentChanged(const QString &trackId);
    void onTrackVolumeChanged(const QString &trackId);
    void onTrackPanChanged(const QString &trackId);
    void onTrackRemoved(const QString &trackId);
    void onTrackChanged(const QString &trackId, const QString &step, const Track &wanted);
    void onTrackSeek(qint64 ticks);
    void onMoveTrackUp(const QString &trackId);
    void onMoveTrackDown(const QString &trackId);
    void onTrackTransposed(const QString &trackId, int semitones);
    void onTrackSelectionChanged(const QString &trackId, bool isSelected, Qt::KeyboardModifiers modifiers);
    void onPreviewNote(const QString &trackId, int semitone);
    void onStopPreview();
    void onLoadingSample(const QString &samplePath);
    void onRenderStarted();
    void onRenderProgress(quint64 progress, quint64 total);
    void onRenderFinished();
    void onUpdateAvailable(bool available, const QString &newVer, const QString &address);
    void onUpdateFailed(const QString &error);

protected:
    bool event(QEvent *event) override;
    void changeEvent(QEvent *event) override;
    void closeEvent(QCloseEvent *event) override;
    void dragEnterEvent(QDragEnterEvent *event) override;
    void dropEvent(QDropEvent *event) override;
    void showEvent(QShowEvent *event) override;

private:
    CommandContext context() { return {*this, settings_, dialogs_, tracks_, session_, playback_}; }
    void makeActions();
    void showFailure(const QString &error);
    void connectParts();
    void connectPlayer();
    void connectRow(const QString &id, TrackWidget *row);
    void onEdited(const QString &trackId, const Track &track);
    void onSettingChanged(Settings::Setting setting, const QVariant &value);
    void saveEdited(const QString &trackId);
    void showDrafts();
    void showShadows();
    void updateActions();
    void showRecording(bool isRecording);
    void showStandIn();
    void showLoop();
    void onPlayingChanged(bool isPlaying);
    void copyAsFiles(const QStringList &ids);
    void showTitle();
    void showSong();
    void showPlace(const ReportedPlace &place);
    void stopArrivals();
    void comeBack();
    void rememberPlace();
    bool mayClose();

    Settings &settings_;
    Dialogs &dialogs_;
    InstrumentSetModel instruments_{{}};
    SoundOutput sound_; // knows what is wanted before an engine asks
    TrackPlayer player_;
    TrackList tracks_;
    SongSession session_{tracks_};
    Playback playback_;
    Transport transport_{tracks_, playback_};
    EditorWindows editors_;
    LiveKeyboard keyboard_;
    KeyRecorder recorder_;
    SessionJournal journal_; // hears after the editors that a song is left
    SongChecks checks_{tracks_, instruments_, settings_, [this] { return playback_.resolvedName({}); }};
    UpdateChecker updates_;
    ChangedFiles changedFiles_;

    TrackRows *rows_;
    SongArea *area_;
    InstrumentComboBox *instrumentList_;
    VUMeter *masterMeter_;
    QSlider *masterVolume_;

    ImportQueue importQueue_;
    SaveCommands save_;
    SongCommands songs_;
    ImportCommands import_;
    SongRecovery recovery_;
    TrackCommands trackCommands_;
    SongTools songTools_;
    SourceListening sourceListening_;
    InstrumentCommands instrumentCommands_;
    TransportCommands transportCommands_;
    PracticeCommands practice_;
    ExportCommands export_;
    NotationExport notationExport_;
    PartFiles partFiles_;
    ProgramCommands program_;
    StatusIndicators status_;
    ImportReports *reports_; // of this window
    SongFindings *findings_;
    ExportNote *exportNote_;
    PlaybackView playbackView_;
    WindowActions actions_{*this};
};
