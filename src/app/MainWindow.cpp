#include "app/MainWindow.h"

#include "app/commands/About.h"
#include "import/MergeTracks.h"
#include "ui/BusyIndicator.h"
#include "ui/Dialogs.h"
#include "ui/InstrumentComboBox.h"
#include "ui/Theme.h"
#include "ui/preferences/PreferencesDialog.h"
#include "ui/song/EmptyHint.h"
#include "ui/song/TrackRows.h"
#include "ui/song/TrackWidget.h"

#include <QAction>
#include <QScrollArea>
#include <QScrollBar>
#include <QSlider>
#include <QTimer>

MainWindow::MainWindow(const WindowServices &services, QWidget *parent)
    : QMainWindow(parent), services_(services), settings_(services.settings), dialogs_(services.dialogs),
      player_(services.makeEngine, this), playback_(tracks_, instruments_, player_),
      editors_(tracks_, playback_, settings_, dialogs_, services.makeEngine, this), import_(settings_),
      updates_(services.updateAddress), rows_(new TrackRows(tracks_, instruments_, settings_, dialogs_))
{
    setWindowTitle(QStringLiteral("Kelvarion Composer"));
    setWindowIcon(QIcon(QStringLiteral(":/icons/appicon.png")));
    setAcceptDrops(true);
    resize(1180, 760);

    auto *const area = new QScrollArea;
    area->setObjectName(QStringLiteral("scrTrackArea"));
    area->setWidgetResizable(true);
    area->setFrameShape(QFrame::NoFrame);
    area->setWidget(rows_);
    setCentralWidget(area);

    makeActions();
    makeMenus();
    makeToolBars();
    makeHistoryDock();
    makeStatusBar();
    connectPlayer();

    connect(rows_, &TrackRows::rowAdded, this, &MainWindow::connectRow);
    connect(rows_, &TrackRows::moveRequested, &tracks_, &TrackList::move);
    connect(rows_, &TrackRows::draggedTo, area,
            [area](int y) { area->ensureVisible(area->horizontalScrollBar()->value(), y, 0, 40); });
    connect(rows_->hint(), &EmptyHint::importMidi, this, &MainWindow::onImportMidi);
    connect(rows_->hint(), &EmptyHint::openAbc, this, &MainWindow::onLoadABC);
    connect(&tracks_, &TrackList::songChanged, this, &MainWindow::updateActions);
    connect(&tracks_, &TrackList::selectionChanged, this, &MainWindow::updateActions);
    connect(&playback_, &Playback::playingChanged, this, &MainWindow::updateActions);
    connect(&editors_, &EditorWindows::applied, this, &MainWindow::onEdited);
    connect(&import_, &SongImport::imported, this, &MainWindow::onImported);
    connect(&scan_, &InstrumentScanTask::finished, this, &MainWindow::onScanned);
    connect(&updates_, &UpdateChecker::updateAvailable, this, &MainWindow::onUpdateAvailable);
    connect(&updates_, &UpdateChecker::updateCheckFailed, this, &MainWindow::onUpdateFailed);
    connect(&settings_, &Settings::settingChanged, this, &MainWindow::onSettingChanged);

    masterVolume_->setValue(settings_.value(Settings::MasterVolume).toInt());
    player_.setMasterVolume(gainOf(masterVolume_->value()));
    connect(masterVolume_, &QSlider::valueChanged, this, &MainWindow::onMasterVolumeChanged);
    playback_.setDefaultInstrument(settings_.value(Settings::DefaultInstrument).toString());
    restoreGeometry(QByteArray::fromBase64(settings_.value(Settings::WindowGeometry).toString().toLatin1()));
    restoreState(QByteArray::fromBase64(settings_.value(Settings::WindowState).toString().toLatin1()));
    updateActions();
}

MainWindow::~MainWindow() = default;

void MainWindow::showEvent(QShowEvent *event)
{
    QMainWindow::showEvent(event);
    QTimer::singleShot(0, this, &MainWindow::startScan); // after the first paint
}

void MainWindow::startScan()
{
    if (scan_.isRunning() || isScanned_)
        return;
    const bool loadsMods = settings_.value(Settings::LoadMods).toBool();
    scan_.start(settings_.value(Settings::RootPath).toString(), loadsMods ? Mods::Load : Mods::Skip);
}

void MainWindow::onScanned(const InstrumentSet &instruments)
{
    scanBusy_->finish();
    isScanned_ = true;
    const auto wanted = settings_.value(Settings::DefaultInstrument).toString();
    {
        const QSignalBlocker blocker(instrumentList_);
        instruments_.setInstruments(instruments);
        instrumentList_->setCurrentText(playback_.resolvedName(wanted));
    }
    playback_.setDefaultInstrument(instrumentList_->currentText());
    takeImported();
}

// --- Commands on tracks ---

void MainWindow::onNewTrack()
{
    Track track;
    track.normalize();
    onImported({tr("New Track"), {}, {}}, {{track}, {}, {}});
}

void MainWindow::onClearTracks()
{
    tracks_.remove(tr("Remove All Tracks"), tracks_.ids());
}

void MainWindow::onRemoveSelectedTracks()
{
    tracks_.remove(tr("Remove Tracks"), tracks_.selectedIds());
}

void MainWindow::onDuplicateTracks()
{
    tracks_.duplicate(tracks_.selectedIds());
}

// Beside the interface thread, since a million notes take a while. The sources stay.
void MainWindow::onMergeTracks()
{
    const auto ids = tracks_.selectedIds();
    if (ids.isEmpty() || merging_.isRunning())
        return;
    QVector<Track> sources;
    for (const auto &id : ids)
        sources.append(*tracks_.find(id)->track);
    struct Merged
    {
        Track track;
        QString error;
    };
    const auto work = [sources](const std::stop_token &) -> Merged {
        try {
            auto track = mergeTracks(sources);
            track.toAbc();
            return {track, {}};
        } catch (const QString &error) {
            return {{}, error};
        }
    };
    merging_.start(this, work, [this, instrument = tracks_.find(ids.first())->instrument](const Merged &merged) {
        updateActions();
        if (merged.error.isEmpty())
            tracks_.add(tr("Merge Tracks"), {{merged.track, instrument}});
        else
            dialogs_.message(this, Dialogs::Severity::Critical, QStringLiteral("Merge Tracks"),
                             QStringLiteral("Could not merge tracks: %1").arg(merged.error));
    });
    updateActions();
}

void MainWindow::onApplyInstrument()
{
    const auto selected = tracks_.selectedIds();
    tracks_.setInstrument(selected.isEmpty() ? tracks_.ids() : selected, instrumentList_->currentText());
}

void MainWindow::onMuteSelected()
{
    tracks_.toggleMuted(tracks_.selectedIds());
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

void MainWindow::onDefaultInstrumentChanged(const QString &name)
{
    playback_.setDefaultInstrument(name);
    settings_.setValue(Settings::DefaultInstrument, name);
}

void MainWindow::updateActions()
{
    const auto enable = [this](const QStringList &names, bool isEnabled) {
        for (const auto &name : names)
            action(name)->setEnabled(isEnabled);
    };
    const bool isSelected = !tracks_.selectedIds().isEmpty();
    enable({QStringLiteral("actionDuplicate_Selected"), QStringLiteral("actionRemove_Selected"),
            QStringLiteral("actionSave_Selected"), QStringLiteral("actionMute_Selected")},
           isSelected);
    enable({QStringLiteral("actionMerge_Selected")}, isSelected && !merging_.isRunning());
    enable({QStringLiteral("actionClear_Tracks"), QStringLiteral("actionSave_All"), QStringLiteral("actionPlay"),
            QStringLiteral("actionApplyInstrument"), QStringLiteral("actionExport_to_Wav"),
            QStringLiteral("actionSelect_All"), QStringLiteral("actionDeselect_All"),
            QStringLiteral("actionInvert_Selection")},
           !tracks_.isEmpty());
    enable({QStringLiteral("actionStop")}, playback_.isPlaying());
}

// --- Playback ---

void MainWindow::onPlay()
{
    playback_.play();
}

void MainWindow::onStopAll()
{
    playback_.stop();
}

void MainWindow::onMasterVolumeChanged(int percent)
{
    player_.setMasterVolume(gainOf(percent));
    settings_.setValue(Settings::MasterVolume, percent);
}

// --- The rest ---

void MainWindow::onPreferences()
{
    PreferencesDialog(settings_, dialogs_, this).exec();
}

void MainWindow::onSettingChanged(Settings::Setting setting, const QVariant &value)
{
    if (setting == Settings::DarkPalette)
        applyTheme(value.toBool() ? Theme::Dark : Theme::Light);
}

void MainWindow::onAbout()
{
    dialogs_.about(this, QStringLiteral("About Kelvarion Composer"), aboutHtml());
}

void MainWindow::onDonate()
{
    dialogs_.openInBrowser(donationAddress());
}

void MainWindow::onWebsite()
{
    dialogs_.openInBrowser(websiteAddress());
}

void MainWindow::onCheckUpdates()
{
    updates_.check();
}

void MainWindow::onUpdateAvailable(bool available, const QString &newVer, const QString &address)
{
    if (!available) {
        dialogs_.message(this, Dialogs::Severity::Information, QStringLiteral("No updates"),
                         QStringLiteral("You are running the latest version of Kelvarion Composer."));
        return;
    }
    const auto question =
        QStringLiteral("Kelvarion Composer v%1 is available.\nWould you like to download it now?").arg(newVer);
    if (dialogs_.ask(this, QStringLiteral("Update available"), question) == Dialogs::Answer::Yes)
        dialogs_.openInBrowser(QUrl(address));
}

void MainWindow::onUpdateFailed(const QString &error)
{
    dialogs_.message(this, Dialogs::Severity::Warning, QStringLiteral("Updates check failed"),
                     QStringLiteral("Failed to check for updates: %1").arg(error));
}
