#include "app/WindowMenus.h"

#include "app/commands/ImportCommands.h"
#include "app/commands/WindowActions.h"
#include "app/services/RecentFiles.h"
#include "ui/Icons.h"

#include <QAction>
#include <QCoreApplication>
#include <QDockWidget>
#include <QMainWindow>
#include <QMenuBar>
#include <QUndoView>

namespace {

struct Texts
{
    Q_DECLARE_TR_FUNCTIONS(MainWindow)
};

template<typename Parent>
QMenu *addMenu(Parent *parent, const char *name, const QString &title)
{
    auto *const menu = parent->addMenu(title);
    menu->setObjectName(QLatin1String(name));
    menu->setToolTipsVisible(true);
    return menu;
}

void addRecentMenu(QMenu *file, ImportCommands &import, const Settings &settings)
{
    auto *const recent = addMenu(file, "menuRecent", Texts::tr("Open &Recent"));
    QObject::connect(recent, &QMenu::aboutToShow, recent, [=, &import] { import.fillRecentMenu(*recent); });
    QObject::connect(file, &QMenu::aboutToShow, recent,
                     [=, &settings] { recent->setEnabled(!RecentFiles::list(settings).isEmpty()); });
}

} // namespace

void makeMenus(QMainWindow &window, const WindowActions &actions, ImportCommands &import, const Settings &settings)
{
    auto *const bar = window.menuBar();
    auto *const file = addMenu(bar, "menuFile", Texts::tr("&File"));
    actions.addTo(*file, "actionNew_Song actionOpen");
    addRecentMenu(file, import, settings);
    auto *const imports = addMenu(file, "menuImport", Texts::tr("Import"));
    imports->setIcon(icon("import"));
    actions.addTo(*imports, "actionImport_MIDI actionImport_from_Clipboard actionImport_Again -");
    auto *const exports = addMenu(file, "menuExport", Texts::tr("Export"));
    exports->setIcon(icon("export"));
    actions.addTo(*exports, "actionExport_to_Wav actionExport_Audio - actionExport_MIDI actionExport_Tunebook");
    actions.addTo(
        *file,
        "- actionSave_Song actionSave_Song_As actionSave_Parts actionSong_Title - actionSave_Selected actionSave_All - "
        "actionRecover - actionExit");

    actions.addTo(*addMenu(bar, "menuEdit", Texts::tr("&Edit")),
                  "actionUndo actionRedo - actionSelect_All actionDeselect_All actionInvert_Selection");
    actions.addTo(
        *addMenu(bar, "menuTrack", Texts::tr("&Track")),
        "actionNew_Track actionDuplicate_Selected actionCopy_as_File actionMerge_Selected actionClean_Quantise "
        "actionApplyInstrument "
        "actionMute_Selected - actionRemove_Selected actionClear_Tracks - actionRename_Track actionEdit_Track "
        "actionSolo_Track actionDescribe_Track - actionPrevious_Track actionNext_Track actionMove_Up actionMove_Down");
    actions.addTo(*addMenu(bar, "menuSong", Texts::tr("&Song")),
                  "actionArrange - actionTranspose_Song actionOne_Tempo actionTrim_Silence actionPad_Parts");
    auto *const playback = addMenu(bar, "menuPlayback", Texts::tr("&Playback"));
    actions.addTo(*playback, "actionPlay actionPlay_Pause actionStop actionListen_to_Source actionRecord - "
                             "actionGo_to_Start actionGo_to_End "
                             "actionMeasure_Back actionMeasure_Forward - actionLoop actionLoop_Begin actionLoop_End - "
                             "actionMetronome");
    addMenu(playback, "menuMetronome", Texts::tr("Count-In and Clicks"));
    actions.addTo(*playback, "actionRehearsal actionRehearsal_Offsets - actionZoom_In actionZoom_Out actionZoom_Whole "
                             "actionFollow actionForget_Clips");
    actions.addTo(*addMenu(bar, "menuTools", Texts::tr("T&ools")), "actionPreferences actionShortcuts");
    actions.addTo(*addMenu(bar, "menuHelp", Texts::tr("&Help")),
                  "actionManual actionShortcuts - actionCheck_for_updates - actionWebsite actionDonate - "
                  "actionAbout_Kelvarion_Composer");
}

void makeHistoryDock(QMainWindow &window, QUndoStack &history)
{
    auto *const dock = new QDockWidget(Texts::tr("History"), &window);
    dock->setObjectName(QStringLiteral("dockHistory"));
    auto *const view = new QUndoView(&history);
    view->setObjectName(QStringLiteral("historyView"));
    view->setAccessibleName(Texts::tr("History"));
    view->setMinimumHeight(3 * view->fontMetrics().lineSpacing()); // beside other panels on a small screen
    view->setEmptyLabel(Texts::tr("Start"));
    view->setToolTip(Texts::tr("Every change; click on one to go back to it"));
    dock->setWidget(view);
    window.addDockWidget(Qt::RightDockWidgetArea, dock);
    dock->hide();
    auto *const toggle = dock->toggleViewAction();
    toggle->setStatusTip(Texts::tr("Show the list of changes"));
    auto *const edit = window.findChild<QMenu *>(QStringLiteral("menuEdit"));
    edit->addSeparator();
    edit->addAction(toggle);
}

void focusShownDocks(QMainWindow &window)
{
    for (auto *const dock : window.findChildren<QDockWidget *>()) {
        QObject::connect(dock->toggleViewAction(), &QAction::triggered, dock, [dock](bool isShown) {
            if (isShown)
                dock->widget()->setFocus(Qt::OtherFocusReason);
        });
    }
}
