#pragma once

#include "app/services/EditorWindows.h"
#include "app/services/InstrumentScanTask.h"
#include "app/services/Playback.h"
#include "app/services/SongImport.h"
#include "app/services/UpdateChecker.h"
#include "audio/TrackPlayer.h"
#include "audio/TrackRenderer.h"
#include "base/BackgroundTask.h"
#include "settings/Settings.h"

#include <QMainWindow>

class BusyIndicator;
class Dialogs;
class InstrumentComboBox;
class QLabel;
class QProgressDialog;
class QSlider;
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
};

// The program's window: the tracks as a list of rows, with menus, toolbars and meters around it. It wires the song, the
// player and the dialogs together; what they do stands in their own classes.
class MainWindow : public QMainWindow
{
    Q_OBJECT

public:
    explicit MainWindow(const WindowServices &services, QWidget *parent = nullptr);
    ~MainWindow() override;

    TrackList &tracks() { return tracks_; }

    // As if the user had dropped them: what is neither ABC nor MIDI by its name is skipped.
    void openFiles(const QStringList &paths);

    // Whether files are still being read, or the game is still to be looked through for instruments.
    bool isLoading() const
    {
        return instruments_.instruments().isEmpty() || import_.isRunning() || !imported_.isEmpty();
    }

public slots:
    void onLoadABC();
    void onExportWav();
    void onImportMidi();
    void onPlay();
    void onStopAll();
    void onAbout();
    void onNewTrack();
    void onClearTracks();
    void onPreferences();
    void onApplyInstrument();
    void onMergeTracks();
    void onRemoveSelectedTracks();
    void onImportClipboard();
    void onSelectAll();
    void onDeselectAll();
    void onInvertSelection();
    void onDuplicateTracks();
    void onCheckUpdates();
    void onSaveSelected();
    void onSaveAll();
    void onMuteSelected();
    void onDonate();
    void onWebsite();
    void onDefaultInstrumentChanged(const QString &name);
    void onMasterVolumeChanged(int percent);
    void onTrackStarted(const QString &trackId);
    void onTrackStopped(const QString &trackId);
    void onAllTracksStopped();
    void onTrackPositionChanged(const QString &trackId, quint64 position);
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
    void onTrackChanged(const QString &trackId);
    void onTrackSeek(qint64 ticks);
    void onMoveTrackUp(const QString &trackId);
    void onMoveTrackDown(const QString &trackId);
    void onTrackSelectionChanged(const QString &trackId, bool isSelected);
    void onPreviewNote(const QString &trackId, int semitone);
    void onStopPreview();
    void onLoadingSample(const QString &samplePath);
    void onRenderStarted();
    void onRenderProgress(quint64 progress, quint64 total);
    void onRenderFinished();
    void onUpdateAvailable(bool available, const QString &newVer, const QString &address);
    void onUpdateFailed(const QString &error);

protected:
    void closeEvent(QCloseEvent *event) override;
    void dragEnterEvent(QDragEnterEvent *event) override;
    void dropEvent(QDropEvent *event) override;
    void showEvent(QShowEvent *event) override;

private:
    struct ActionRow;
    static const QVector<ActionRow> &actionTable();

    // What the window is made of.
    void makeActions();
    void makeMenus();
    void makeToolBars();
    void makeHistoryDock();
    void makeStatusBar();
    void addToMenu(QMenu *menu, const QStringList &actionNames);
    void fillRecentFilesMenu(QMenu *menu);
    void connectPlayer();
    void connectRow(const QString &id, TrackWidget *row);
    QAction *action(const QString &name) const;

    void load(const ImportRequest &request);
    void onImported(const ImportRequest &request, const ReadSong &song);
    void takeImported();
    void startScan();
    void onScanned(const InstrumentSet &instruments);
    QString instrumentFor(const Track &track) const;
    ExistingTracks askAboutExisting(const QString &title);
    void onEdited(const QString &trackId, const Track &track);
    QString startFolder(Settings::Setting setting) const;
    void rememberFolder(Settings::Setting setting, const QString &file);
    bool save(const QStringList &ids);
    void startExport(const QString &fileName);
    bool isExporting() const { return renderer_ && renderer_->isRunning(); }
    void updateActions();
    void onSettingChanged(Settings::Setting setting, const QVariant &value);

    WindowServices services_;
    Settings &settings_;
    Dialogs &dialogs_;
    InstrumentSetModel instruments_{{}};
    TrackPlayer player_;
    TrackList tracks_;
    Playback playback_;
    EditorWindows editors_;
    SongImport import_;
    BackgroundTask merging_;
    QVector<std::pair<ImportRequest, ReadSong>> imported_; // that is still to become tracks
    InstrumentScanTask scan_;
    bool isScanned_ = false;
    UpdateChecker updates_;
    std::unique_ptr<TrackRenderer> renderer_;

    TrackRows *rows_;
    InstrumentComboBox *instrumentList_ = nullptr;
    QSlider *masterVolume_ = nullptr;
    VUMeter *masterMeter_ = nullptr;
    QLabel *outputProblem_ = nullptr; // why nothing is heard
    BusyIndicator *importBusy_ = nullptr;
    BusyIndicator *scanBusy_ = nullptr;
    BusyIndicator *samplesBusy_ = nullptr;
    QProgressDialog *exportProgress_ = nullptr;
};
