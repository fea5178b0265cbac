// Menus and tool bar of the editor window.
#include "ui/Icons.h"
#include "ui/editor/AbcEditorWindow.h"
#include "ui/editor/EditorActions.h"
#include "ui/editor/EditorPlayback.h"
#include "ui/editor/GhostParts.h"
#include "ui/editor/StepEntry.h"
#include "ui/roll/PianoRoll.h"

#include <QLabel>
#include <QMenuBar>
#include <QSlider>
#include <QTimer>
#include <QToolBar>
#include <QToolButton>

namespace {

QList<QAction *> listOf(const QVector<QAction *> &actions)
{
    return {actions.begin(), actions.end()};
}

} // namespace

void AbcEditorWindow::createMenus()
{
    using Id = EditorActions::Id;
    const auto add = [this](const QString &title, Id first, Id last) {
        auto *const menu = menuBar()->addMenu(title);
        actions_->fill(*menu, first, last);
        return menu;
    };
    add(tr("&Tune"), Id::Apply, Id::Close);
    add(tr("&Edit"), Id::Undo, Id::FixProblem);
    createNotesMenu();
    add(tr("T&ransform"), Id::QuickRealign, Id::ChangeKey);
    add(tr("&Clean Up"), Id::SplitNotes, Id::DeleteMeasures);
    add(tr("&Play"), Id::PlayOrStop, Id::NormalTempo);
    auto *const view = add(tr("&View"), Id::ShowRoll, Id::ZoomNormal);
    view->addSeparator();
    auto *const ghosts = view->addMenu(tr("&Ghost Notes"));
    ghosts->setObjectName(QStringLiteral("menuGhosts"));
    connect(ghosts, &QMenu::aboutToShow, this, [=, this] { ghosts_->fill(*ghosts); });
    auto *const ofRoll = view->addMenu(tr("Grid and &Zoom of the Roll"));
    ofRoll->addActions(listOf(roll_->actions().actionsOf(RollActions::Menu::View)));
    ofRoll->removeAction(roll_->actions().action(RollActions::Follow)); // the window's is for both views
    for (auto *const menu : menuBar()->findChildren<QMenu *>())
        menu->setToolTipsVisible(true);
}

void AbcEditorWindow::createNotesMenu()
{
    const auto &actions = roll_->actions();
    auto *const notes = menuBar()->addMenu(tr("&Notes"));
    actions.fillEditMenu(*notes);
    notes->addSeparator();
    notes->addMenu(tr("&Enter"))->addActions(listOf(actions.entryActions()));
    notes->addAction(stepEntry_->action());
    const auto add = [&](const char *name, const QString &title, const QVector<QAction *> &choices) {
        notes->addMenu(icon(name), title)->addActions(listOf(choices));
    };
    add("notelength", tr("Len&gth of New Notes"), actions.lengthActions());
    add("grid", tr("Sn&ap"), actions.snapActions());
}

void AbcEditorWindow::createToolBar()
{
    using Id = EditorActions::Id;
    auto *const bar = addToolBar(tr("Commands"));
    bar->setObjectName(QStringLiteral("commands"));
    bar->setMovable(false);
    bar->setContextMenuPolicy(Qt::PreventContextMenu);
    bar->setIconSize({20, 20});
    const auto add = [&](std::initializer_list<Id> ids) {
        for (const auto id : ids)
            bar->addAction((*actions_)[id]);
        bar->addSeparator();
    };
    add({Id::Apply});
    add({Id::Undo, Id::Redo});
    add({Id::PlayFromStart, Id::PlayFromCaret, Id::LoopSelection, Id::Stop, Id::WithSong});
    addTempoControl(*bar);
    bar->addSeparator();
    const auto addTool = [&](RollActions::Id id, const char *name) {
        auto *const tool = roll_->actions().action(id);
        tool->setIcon(icon(name));
        bar->addAction(tool);
    };
    addTool(RollActions::SelectTool, "select");
    addTool(RollActions::DrawTool, "draw");
    addLengthControls(*bar);
    bar->addSeparator();
    add({Id::Find, Id::Replace});
    bar->addAction((*actions_)[Id::ShowRoll]);
    bar->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
    // Only Apply says its name.
    for (auto *const action : bar->actions())
        action->setPriority(action == (*actions_)[Id::Apply] ? QAction::NormalPriority : QAction::LowPriority);
}

void AbcEditorWindow::addLengthControls(QToolBar &bar)
{
    const auto add = [&](const QString &name, const QString &tip, const QVector<QAction *> &choices) {
        auto *const button = new QToolButton;
        button->setObjectName(name);
        button->setIcon(icon(name));
        button->setToolTip(tip);
        button->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
        button->setPopupMode(QToolButton::InstantPopup);
        auto *const menu = new QMenu(button);
        menu->addActions(listOf(choices));
        button->setMenu(menu);
        bar.addWidget(button);
        return button;
    };
    noteLength_ = add(QStringLiteral("notelength"),
                      tr("How long new notes of the piano roll are (keys 1 to 7; . dots, T makes triplets)"),
                      roll_->actions().lengthActions());
    grid_ = add(QStringLiteral("grid"), tr("What notes of the piano roll snap to (keys [ and ])"),
                roll_->actions().snapActions());
    connect(roll_, &PianoRoll::lengthsChanged, this, &AbcEditorWindow::showLengths);
    showLengths();
}

void AbcEditorWindow::showLengths()
{
    const auto show = [](QToolButton &button, const QString &length, const QString &name) {
        button.setText(length);
        button.setAccessibleName(name.arg(length));
    };
    show(*noteLength_, RollLengths::labelOf(roll_->commands().newNoteLength()), tr("Length of new notes: %1"));
    show(*grid_, RollSnap::label(roll_->state().snap.choice()), tr("Grid: %1"));
}

void AbcEditorWindow::addTempoControl(QToolBar &bar)
{
    tempo_ = new QSlider(Qt::Horizontal);
    tempo_->setObjectName(QStringLiteral("sldTempo"));
    tempo_->setRange(EditorPlayback::slowest, EditorPlayback::fastest);
    tempo_->setPageStep(25);
    tempo_->setValue(playback_->tempoPercent());
    tempo_->setFixedWidth(110);
    tempo_->setAccessibleName(tr("Playback tempo"));
    tempo_->setToolTip(tr("How fast the preview plays; the tune keeps its tempo (F9 slower, F11 faster)"));
    tempoLabel_ = new QLabel;
    tempoLabel_->setMinimumWidth(tempoLabel_->fontMetrics().horizontalAdvance(QStringLiteral("8888 %")));
    bar.addWidget(tempo_);
    bar.addWidget(tempoLabel_);
    connect(tempo_, &QSlider::valueChanged, this, &AbcEditorWindow::showTempo);
    // A drag restarts the music once it rests.
    auto *const rest = new QTimer(this);
    rest->setSingleShot(true);
    rest->setInterval(120);
    connect(tempo_, &QSlider::valueChanged, rest, qOverload<>(&QTimer::start));
    connect(rest, &QTimer::timeout, this, [this] { playback_->setTempoPercent(tempo_->value()); });
}
