#include "app/MainWindow.h"
#include "app/services/RecentFiles.h"
#include "ui/BusyIndicator.h"
#include "ui/Icons.h"
#include "ui/InstrumentComboBox.h"
#include "ui/song/VUMeter.h"

#include <QAction>
#include <QDockWidget>
#include <QFileInfo>
#include <QLabel>
#include <QMenuBar>
#include <QShortcut>
#include <QSlider>
#include <QStatusBar>
#include <QToolBar>
#include <QUndoView>

// A command of the window. An empty slot stands for close().
struct MainWindow::ActionRow
{
    const char *name;
    const char *text;
    const char *shortcut;
    const char *tip; // tool tip and status text
    const char *icon;
    void (MainWindow::*slot)();
};

const QVector<MainWindow::ActionRow> &MainWindow::actionTable()
{
    static const QVector<ActionRow> table{
        {"actionOpen", "Open", "Ctrl+O", "Open ABC file", "open", &MainWindow::onLoadABC},
        {"actionExit", "Exit", "Alt+F4", "Exit Kelvarion Composer", "exit", nullptr},
        {"actionExport_to_Wav", "Export to Wav", "Ctrl+Shift+W", "Export all (non-muted) tracks to a wave file",
         "export", &MainWindow::onExportWav},
        {"actionImport_MIDI", "Import MIDI", "Ctrl+Shift+M", "Import MIDI file into the editor", "midiimport",
         &MainWindow::onImportMidi},
        {"actionPlay", "Play", "", "Preview current tracks.", "play", &MainWindow::onPlay},
        {"actionStop", "Stop", "", "Stop preview.", "stop", &MainWindow::onStopAll},
        {"actionAbout_Kelvarion_Composer", "About Kelvarion Composer...", "", "", "about", &MainWindow::onAbout},
        {"actionNew_Track", "New Track", "Ctrl+N", "Create a new track", "newtrack", &MainWindow::onNewTrack},
        {"actionClear_Tracks", "Remove All Tracks", "Shift+Del", "Remove all tracks", "removetrack",
         &MainWindow::onClearTracks},
        {"actionPreferences", "Preferences...", "", "Show preferences", "preferences", &MainWindow::onPreferences},
        {"actionApplyInstrument", "Apply Instrument", "",
         "Apply this instrument to selected tracks or all if none are selected.", "applyinstrument",
         &MainWindow::onApplyInstrument},
        {"actionMerge_Selected", "Merge Selected", "Ctrl+J", "Merges the selected tracks together", "merge",
         &MainWindow::onMergeTracks},
        {"actionRemove_Selected", "Remove Selected", "", "Remove the selected tracks", "removeone",
         &MainWindow::onRemoveSelectedTracks},
        {"actionImport_from_Clipboard", "Import from Clipboard", "Ctrl+V", "Import an ABC track from the clipboard",
         "clipboard", &MainWindow::onImportClipboard},
        {"actionSelect_All", "Select All", "Ctrl+A", "", "", &MainWindow::onSelectAll},
        {"actionDeselect_All", "Deselect All", "Ctrl+Shift+A", "", "", &MainWindow::onDeselectAll},
        {"actionInvert_Selection", "Invert Selection", "Ctrl+I", "", "", &MainWindow::onInvertSelection},
        {"actionDuplicate_Selected", "Duplicate Selected", "Ctrl+D", "Duplicate the selected tracks", "duplicatetrack",
         &MainWindow::onDuplicateTracks},
        {"actionCheck_for_updates", "Check for updates...", "", "Check online for updates for Kelvarion Composer", "",
         &MainWindow::onCheckUpdates},
        {"actionSave_Selected", "Save Selected", "Ctrl+S", "Save the selected tracks to disk", "save",
         &MainWindow::onSaveSelected},
        {"actionSave_All", "Save All", "Ctrl+Shift+S", "Save all tracks to disk", "saveall", &MainWindow::onSaveAll},
        {"actionMute_Selected", "(Un)mute Selected", "Ctrl+M", "(Un)mute the selected tracks", "mute",
         &MainWindow::onMuteSelected},
        {"actionDonate", "Donate", "", "", "donate", &MainWindow::onDonate},
        {"actionWebsite", "Website", "", "", "forum", &MainWindow::onWebsite},
    };
    return table;
}

namespace {

const auto separator = QStringLiteral("-");

QStringList words(const char *text)
{
    return QString::fromLatin1(text).split(u' ', Qt::SkipEmptyParts);
}

} // namespace

QAction *MainWindow::action(const QString &name) const
{
    return findChild<QAction *>(name);
}

void MainWindow::makeActions()
{
    for (const auto &row : actionTable()) {
        auto *const made = new QAction(*row.icon != '\0' ? icon(row.icon) : QIcon(), QLatin1String(row.text), this);
        made->setObjectName(QLatin1String(row.name));
        made->setShortcut(QKeySequence(QLatin1String(row.shortcut)));
        if (*row.tip != '\0') {
            made->setToolTip(QLatin1String(row.tip));
            made->setStatusTip(QLatin1String(row.tip));
        }
        if (row.slot)
            connect(made, &QAction::triggered, this, row.slot);
        else
            connect(made, &QAction::triggered, this, &MainWindow::close);
        addAction(made);
    }
    auto *const undo = tracks_.history().createUndoAction(this);
    undo->setObjectName(QStringLiteral("actionUndo"));
    undo->setShortcut(QKeySequence(QStringLiteral("Ctrl+Z")));
    auto *const redo = tracks_.history().createRedoAction(this);
    redo->setObjectName(QStringLiteral("actionRedo"));
    redo->setShortcut(QKeySequence(QStringLiteral("Ctrl+Shift+Z")));
    addActions({undo, redo});
}

void MainWindow::addToMenu(QMenu *menu, const QStringList &actionNames)
{
    for (const auto &name : actionNames) {
        if (name == separator)
            menu->addSeparator();
        else
            menu->addAction(action(name));
    }
}

void MainWindow::makeMenus()
{
    const auto addMenu = [](auto *parent, const char *name, const char *title) {
        auto *const menu = parent->addMenu(QLatin1String(title));
        menu->setObjectName(QLatin1String(name));
        menu->setToolTipsVisible(true);
        return menu;
    };
    auto *const file = addMenu(menuBar(), "menuFile", "&File");
    addToMenu(file, words("actionOpen"));
    auto *const recent = addMenu(file, "menuRecent", "Open &Recent");
    connect(recent, &QMenu::aboutToShow, this, [=, this] { fillRecentFilesMenu(recent); });
    connect(file, &QMenu::aboutToShow, this,
            [=, this] { recent->setEnabled(!RecentFiles::list(settings_).isEmpty()); });
    auto *const import = addMenu(file, "menuImport", "Import");
    import->setIcon(icon("import"));
    addToMenu(import, words("actionImport_MIDI actionImport_from_Clipboard"));
    auto *const exports = addMenu(file, "menuExport", "Export");
    exports->setIcon(icon("export"));
    addToMenu(exports, words("actionExport_to_Wav"));
    addToMenu(file, words("- actionSave_Selected actionSave_All - actionExit"));

    addToMenu(addMenu(menuBar(), "menuEdit", "&Edit"),
              words("actionUndo actionRedo - actionSelect_All actionDeselect_All actionInvert_Selection"));
    addToMenu(addMenu(menuBar(), "menuTrack", "&Track"),
              words("actionNew_Track actionDuplicate_Selected actionMerge_Selected actionApplyInstrument "
                    "actionMute_Selected - actionRemove_Selected actionClear_Tracks - actionPlay actionStop"));
    addToMenu(addMenu(menuBar(), "menuTools", "T&ools"), words("actionPreferences"));
    addToMenu(addMenu(menuBar(), "menuHelp", "&Help"),
              words("actionCheck_for_updates - actionWebsite actionDonate - actionAbout_Kelvarion_Composer"));
}

void MainWindow::fillRecentFilesMenu(QMenu *menu)
{
    menu->clear();
    for (const auto &path : RecentFiles::list(settings_)) {
        auto *const entry = menu->addAction(QFileInfo(path).fileName().replace(u'&', QStringLiteral("&&")));
        entry->setToolTip(path);
        entry->setStatusTip(path);
        connect(entry, &QAction::triggered, this, [=, this] { openFiles({path}); });
    }
}

void MainWindow::makeToolBars()
{
    const auto addBar = [&](const char *name, const char *title, const QStringList &actionNames) {
        auto *const bar = addToolBar(QLatin1String(title));
        bar->setObjectName(QLatin1String(name));
        bar->setIconSize({24, 24});
        for (const auto &actionName : actionNames) {
            if (actionName == separator)
                bar->addSeparator();
            else
                bar->addAction(action(actionName));
        }
        return bar;
    };
    addBar("tbTracks", "Track Toolbar",
           words("actionOpen actionImport_MIDI actionSave_All - actionNew_Track actionDuplicate_Selected "
                 "actionMerge_Selected actionRemove_Selected actionClear_Tracks actionMute_Selected"));
    addBar("tbPlayback", "Playback Controls", words("actionPlay actionStop"));

    auto *const instrument = addBar("tbInstrument", "Instrument Toolbar", {});
    instrumentList_ = new InstrumentComboBox(instruments_);
    instrumentList_->setObjectName(QStringLiteral("instrumentList"));
    instrumentList_->setAccessibleName(tr("Default instrument"));
    instrumentList_->setToolTip(QStringLiteral("This is the default instrument that will be assigned to new tracks"));
    instrumentList_->setStatusTip(QStringLiteral("Default instrument for new tracks"));
    instrumentList_->setMinimumContentsLength(18);
    instrumentList_->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    connect(instrumentList_, &QComboBox::currentTextChanged, this, &MainWindow::onDefaultInstrumentChanged);
    instrument->addWidget(instrumentList_);
    instrument->addAction(action(QStringLiteral("actionApplyInstrument")));

    auto *const meters = addBar("tbVU", "Meters Toolbar", {});
    masterMeter_ = new VUMeter(Qt::Horizontal);
    masterMeter_->setObjectName(QStringLiteral("masterMeter"));
    masterMeter_->setAccessibleName(tr("Master level"));
    masterMeter_->setToolTip(tr("The level of all tracks together"));
    masterMeter_->setMinimumWidth(200);
    meters->addWidget(masterMeter_);
    auto *const speaker = new QLabel;
    speaker->setPixmap(icon("speaker-volume").pixmap(24, 24));
    speaker->setContentsMargins(8, 0, 4, 0);
    meters->addWidget(speaker);
    masterVolume_ = new QSlider(Qt::Horizontal);
    masterVolume_->setObjectName(QStringLiteral("slMasterVolume"));
    masterVolume_->setAccessibleName(tr("Master volume"));
    masterVolume_->setToolTip(tr("The playback volume of all tracks"));
    masterVolume_->setRange(0, 100);
    masterVolume_->setFixedWidth(120);
    meters->addWidget(masterVolume_);
}

void MainWindow::makeHistoryDock()
{
    auto *const dock = new QDockWidget(tr("History"), this);
    dock->setObjectName(QStringLiteral("dockHistory"));
    auto *const view = new QUndoView(&tracks_.history());
    view->setObjectName(QStringLiteral("historyView"));
    view->setAccessibleName(tr("History"));
    view->setEmptyLabel(tr("Start"));
    view->setToolTip(tr("Every change; click on one to go back to it"));
    dock->setWidget(view);
    addDockWidget(Qt::RightDockWidgetArea, dock);
    dock->hide();
    auto *const toggle = dock->toggleViewAction();
    toggle->setStatusTip(tr("Show the list of changes"));
    auto *const edit = findChild<QMenu *>(QStringLiteral("menuEdit"));
    edit->addSeparator();
    edit->addAction(toggle);
}

void MainWindow::makeStatusBar()
{
    // Here, since a key belongs to one thing only and several indicators may be shown.
    auto *const escape = new QShortcut(Qt::Key_Escape, this);
    connect(escape, &QShortcut::activated, this, [this] {
        for (auto *const busy : {importBusy_, scanBusy_, samplesBusy_}) {
            if (busy->isVisible())
                emit busy->cancelled();
        }
    });
    outputProblem_ = new QLabel;
    outputProblem_->setObjectName(QStringLiteral("outputProblem"));
    outputProblem_->hide();
    statusBar()->addPermanentWidget(outputProblem_);
    importBusy_ = new BusyIndicator;
    scanBusy_ = new BusyIndicator;
    scanBusy_->setObjectName(QStringLiteral("scanIndicator"));
    samplesBusy_ = new BusyIndicator;
    samplesBusy_->setObjectName(QStringLiteral("samplesIndicator"));
    statusBar()->addPermanentWidget(scanBusy_);
    statusBar()->addPermanentWidget(samplesBusy_);
    statusBar()->addPermanentWidget(importBusy_);
    connect(importBusy_, &BusyIndicator::cancelled, &import_, &SongImport::cancel);
    connect(&import_, &SongImport::progress, this, [this](const QString &status, int done, int total) {
        statusBar()->showMessage(status);
        importBusy_->showProgress(status, done, total > 1 ? total : 0);
    });
    connect(&import_, &SongImport::idle, this, [this] {
        statusBar()->clearMessage();
        importBusy_->finish();
    });
    connect(scanBusy_, &BusyIndicator::cancelled, &scan_, &InstrumentScanTask::stop);
    connect(&scan_, &InstrumentScanTask::progress, scanBusy_,
            [this](int done, int total) { scanBusy_->showProgress(tr("Looking for instruments..."), done, total); });
    connect(samplesBusy_, &BusyIndicator::cancelled, this, &MainWindow::onStopAll);
    connect(&playback_, &Playback::loading, samplesBusy_, [this](int track, int tracks, int percent) {
        const auto text = tr("Loading samples, track %1 of %2...").arg(track).arg(tracks);
        samplesBusy_->showProgress(text, 100 * (track - 1) + percent, 100 * tracks);
    });
    connect(&playback_, &Playback::loaded, samplesBusy_, &BusyIndicator::finish);
}
