#include "app/WindowMenus.h"

#include "app/commands/ImportCommands.h"
#include "app/commands/WindowActions.h"
#include "app/services/RecentFiles.h"
#include "ui/Icons.h"

#include <QCoreApplication>
#include <QDockWidget>
#include <QMainWindow>
#include <QMenuBar>
#include <QUndoView>

namespace {

QString tr(const char *text)
{
    return QCoreApplication::translate("MainWindow", text);
}

template<typename Parent>
QMenu *addMenu(Parent *parent, const char *name, const char *title)
{
    auto *const menu = parent->addMenu(QLatin1String(title));
    menu->setObjectName(QLatin1String(name));
    menu->setToolTipsVisible(true);
    return menu;
}

void addRecentMenu(QMenu *file, ImportCommands &import, const Settings &settings)
{
    auto *const recent = addMenu(file, "menuRecent", "Open &Recent");
    QObject::connect(recent, &QMenu::aboutToShow, recent, [=, &import] { import.fillRecentMenu(*recent); });
    QObject::connect(file, &QMenu::aboutToShow, recent,
                     [=, &settings] { recent->setEnabled(!RecentFiles::list(settings).isEmpty()); });
}

} // namespace

void makeMenus(QMainWindow &window, const WindowActions &actions, ImportCommands &import, const Settings &settings)
{
    auto *const bar = window.menuBar();
    auto *const file = addMenu(bar, "menuFile", "&File");
    actions.addTo(*file, "actionNew_Song actionOpen");
    addRecentMenu(file, import, settings);
    auto *const imports = addMenu(file, "menuImport", "Import");
    imports->setIcon(icon("import"));
    actions.addTo(*imports, "actionImport_MIDI actionImport_from_Clipboard actionImport_Again -");
    auto *const exports = addMenu(file, "menuExport", "Export");
    exports->setIcon(icon("export"));
    actions.addTo(*exports, "actionExport_to_Wav actionExport_Audio - actionExport_MIDI actionExport_Tunebook");
    actions.addTo(
        *file,
        "- actionSave_Song actionSave_Song_As actionSave_Parts actionSong_Title - actionSave_Selected actionSave_All - "
        "actionRecover - actionExit");

    actions.addTo(*addMenu(bar, "menuEdit", "&Edit"),
                  "actionUndo actionRedo - actionSelect_All actionDeselect_All actionInvert_Selection");
    actions.addTo(
        *addMenu(bar, "menuTrack", "&Track"),
        "actionNew_Track actionDuplicate_Selected actionMerge_Selected actionClean_Quantise actionApplyInstrument "
        "actionMute_Selected - actionRemove_Selected actionClear_Tracks");
    actions.addTo(*addMenu(bar, "menuSong", "&Song"),
                  "actionArrange - actionTranspose_Song actionOne_Tempo actionTrim_Silence actionPad_Parts");
    auto *const playback = addMenu(bar, "menuPlayback", "&Playback");
    actions.addTo(*playback, "actionPlay actionPlay_Pause actionStop actionListen_to_Source actionRecord - "
                             "actionGo_to_Start actionGo_to_End "
                             "actionMeasure_Back actionMeasure_Forward - actionLoop actionLoop_Begin actionLoop_End - "
                             "actionMetronome");
    addMenu(playback, "menuMetronome", "Count-In and Clicks");
    actions.addTo(
        *playback,
        "actionRehearsal actionRehearsal_Offsets - actionZoom_In actionZoom_Out actionZoom_Whole actionFollow");
    actions.addTo(*addMenu(bar, "menuTools", "T&ools"), "actionPreferences");
    actions.addTo(
        *addMenu(bar, "menuHelp", "&Help"),
        "actionManual - actionCheck_for_updates - actionWebsite actionDonate - actionAbout_Kelvarion_Composer");
}

void makeHistoryDock(QMainWindow &window, QUndoStack &history)
{
    auto *const dock = new QDockWidget(tr("History"), &window);
    dock->setObjectName(QStringLiteral("dockHistory"));
    auto *const view = new QUndoView(&history);
    view->setObjectName(QStringLiteral("historyView"));
    view->setAccessibleName(tr("History"));
    view->setEmptyLabel(tr("Start"));
    view->setToolTip(tr("Every change; click on one to go back to it"));
    dock->setWidget(view);
    window.addDockWidget(Qt::RightDockWidgetArea, dock);
    dock->hide();
    auto *const toggle = dock->toggleViewAction();
    toggle->setStatusTip(tr("Show the list of changes"));
    auto *const edit = window.findChild<QMenu *>(QStringLiteral("menuEdit"));
    edit->addSeparator();
    edit->addAction(toggle);
}
