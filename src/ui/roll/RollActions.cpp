#include "ui/roll/RollActions.h"

#include "ui/roll/RollCommands.h"
#include "ui/roll/RollSnap.h"

#include <QActionGroup>
#include <QCoreApplication>
#include <QKeySequence>
#include <QWidget>

#include <array>

namespace {

using Direction = RollCommands::Direction;
using Selecting = RollCommands::Selecting;
constexpr auto semitonesPerOctave = 12;

enum class Menu { Edit, View };
enum class Starts { Here, Group };

struct Row
{
    RollActions::Id id;
    Menu menu;
    Starts starts; // Group: a separator stands before it
    const char *text;
    const char *toolTip;
    const char *shortcut;
    void (*run)(RollCommands &); // null where the roll does it
};

#define COMPOSER_TEXT(text) QT_TRANSLATE_NOOP("RollActions", text)

// The order of the rows is the order of the menus.
const std::array rows{
    Row{RollActions::SelectTool, Menu::Edit, Starts::Here, COMPOSER_TEXT("&Select Notes"),
        COMPOSER_TEXT("Select, move and resize notes with the mouse; a double click inserts one"), "S", nullptr},
    Row{RollActions::DrawTool, Menu::Edit, Starts::Here, COMPOSER_TEXT("&Draw Notes"),
        COMPOSER_TEXT("Draw notes with the mouse"), "P", nullptr},
    Row{RollActions::InsertNote, Menu::Edit, Starts::Group, COMPOSER_TEXT("&Insert Note"),
        COMPOSER_TEXT("Insert a note at the cursor"), "Ins", [](RollCommands &commands) { commands.insertAtCursor(); }},
    Row{RollActions::Cut, Menu::Edit, Starts::Group, COMPOSER_TEXT("Cu&t Notes"),
        COMPOSER_TEXT("Move the selected notes to the clipboard"), "Ctrl+X",
        [](RollCommands &commands) { commands.cut(); }},
    Row{RollActions::Copy, Menu::Edit, Starts::Here, COMPOSER_TEXT("&Copy Notes"),
        COMPOSER_TEXT("Copy the selected notes to the clipboard, as ABC"), "Ctrl+C",
        [](RollCommands &commands) { commands.copy(); }},
    Row{RollActions::Paste, Menu::Edit, Starts::Here, COMPOSER_TEXT("&Paste Notes"),
        COMPOSER_TEXT("Insert the notes of the clipboard at the cursor"), "Ctrl+V",
        [](RollCommands &commands) { commands.paste(); }},
    Row{RollActions::Duplicate, Menu::Edit, Starts::Here, COMPOSER_TEXT("D&uplicate Notes"),
        COMPOSER_TEXT("Repeat the selected notes behind themselves"), "Ctrl+D",
        [](RollCommands &commands) { commands.duplicate(); }},
    Row{RollActions::Delete, Menu::Edit, Starts::Here, COMPOSER_TEXT("D&elete Notes"),
        COMPOSER_TEXT("Delete the selected notes"), "Del", [](RollCommands &commands) { commands.removeSelected(); }},
    Row{RollActions::SelectAll, Menu::Edit, Starts::Group, COMPOSER_TEXT("Select &All Notes"),
        COMPOSER_TEXT("Select every note"), "Ctrl+A", [](RollCommands &commands) { commands.selectAll(); }},
    Row{RollActions::SelectNone, Menu::Edit, Starts::Here, COMPOSER_TEXT("Select &No Notes"),
        COMPOSER_TEXT("Take back the selection, or the drag in progress"), "Esc", nullptr},
    Row{RollActions::SelectNext, Menu::Edit, Starts::Here, COMPOSER_TEXT("Select Next Note"),
        COMPOSER_TEXT("Select the note after the selection or the cursor"), "Alt+Right",
        [](RollCommands &commands) { commands.selectNeighbour(Direction::Forward, Selecting::Replace); }},
    Row{RollActions::SelectPrevious, Menu::Edit, Starts::Here, COMPOSER_TEXT("Select Previous Note"),
        COMPOSER_TEXT("Select the note before the selection or the cursor"), "Alt+Left",
        [](RollCommands &commands) { commands.selectNeighbour(Direction::Back, Selecting::Replace); }},
    Row{RollActions::ExtendNext, Menu::Edit, Starts::Here, COMPOSER_TEXT("Extend Selection to Next Note"),
        COMPOSER_TEXT("Add the next note to the selection"), "Alt+Shift+Right",
        [](RollCommands &commands) { commands.selectNeighbour(Direction::Forward, Selecting::Extend); }},
    Row{RollActions::ExtendPrevious, Menu::Edit, Starts::Here, COMPOSER_TEXT("Extend Selection to Previous Note"),
        COMPOSER_TEXT("Add the previous note to the selection"), "Alt+Shift+Left",
        [](RollCommands &commands) { commands.selectNeighbour(Direction::Back, Selecting::Extend); }},
    Row{RollActions::MoveEarlier, Menu::Edit, Starts::Group, COMPOSER_TEXT("Move Earlier"),
        COMPOSER_TEXT("Move the selected notes, or the cursor, one grid step back"), "Left",
        [](RollCommands &commands) { commands.moveByStep(Direction::Back); }},
    Row{RollActions::MoveLater, Menu::Edit, Starts::Here, COMPOSER_TEXT("Move Later"),
        COMPOSER_TEXT("Move the selected notes, or the cursor, one grid step on"), "Right",
        [](RollCommands &commands) { commands.moveByStep(Direction::Forward); }},
    Row{RollActions::MoveUp, Menu::Edit, Starts::Here, COMPOSER_TEXT("Move Up"),
        COMPOSER_TEXT("Move the selected notes, or the cursor, a semitone up"), "Up",
        [](RollCommands &commands) { commands.moveBySemitones(1); }},
    Row{RollActions::MoveDown, Menu::Edit, Starts::Here, COMPOSER_TEXT("Move Down"),
        COMPOSER_TEXT("Move the selected notes, or the cursor, a semitone down"), "Down",
        [](RollCommands &commands) { commands.moveBySemitones(-1); }},
    Row{RollActions::MoveOctaveUp, Menu::Edit, Starts::Here, COMPOSER_TEXT("Move an Octave Up"),
        COMPOSER_TEXT("Move the selected notes, or the cursor, an octave up"), "Ctrl+Up",
        [](RollCommands &commands) { commands.moveBySemitones(semitonesPerOctave); }},
    Row{RollActions::MoveOctaveDown, Menu::Edit, Starts::Here, COMPOSER_TEXT("Move an Octave Down"),
        COMPOSER_TEXT("Move the selected notes, or the cursor, an octave down"), "Ctrl+Down",
        [](RollCommands &commands) { commands.moveBySemitones(-semitonesPerOctave); }},
    Row{RollActions::MoveMeasureEarlier, Menu::Edit, Starts::Here, COMPOSER_TEXT("Move a Measure Earlier"),
        COMPOSER_TEXT("Move the selected notes a measure back, or the cursor to its start"), "Ctrl+Left",
        [](RollCommands &commands) { commands.moveByMeasure(Direction::Back); }},
    Row{RollActions::MoveMeasureLater, Menu::Edit, Starts::Here, COMPOSER_TEXT("Move a Measure Later"),
        COMPOSER_TEXT("Move the selected notes a measure on, or the cursor to the next one"), "Ctrl+Right",
        [](RollCommands &commands) { commands.moveByMeasure(Direction::Forward); }},
    Row{RollActions::Lengthen, Menu::Edit, Starts::Here, COMPOSER_TEXT("&Lengthen"),
        COMPOSER_TEXT("Make the selected notes one grid step longer"), "Shift+Right",
        [](RollCommands &commands) { commands.resizeByStep(Direction::Forward); }},
    Row{RollActions::Shorten, Menu::Edit, Starts::Here, COMPOSER_TEXT("Sho&rten"),
        COMPOSER_TEXT("Make the selected notes one grid step shorter"), "Shift+Left",
        [](RollCommands &commands) { commands.resizeByStep(Direction::Back); }},
    Row{RollActions::CursorToStart, Menu::Edit, Starts::Group, COMPOSER_TEXT("Cursor to Start"),
        COMPOSER_TEXT("Set the cursor to the start of the track"), "Home",
        [](RollCommands &commands) { commands.setCursor(0); }},
    Row{RollActions::CursorToEnd, Menu::Edit, Starts::Here, COMPOSER_TEXT("Cursor to End"),
        COMPOSER_TEXT("Set the cursor behind the last note"), "End",
        [](RollCommands &commands) { commands.setCursorToEnd(); }},
    Row{RollActions::PlayOrStop, Menu::Edit, Starts::Here, COMPOSER_TEXT("Play or Stop"),
        COMPOSER_TEXT("Play the track from the cursor on, or stop what plays"), "Space", nullptr},
    Row{RollActions::PlayFromCursor, Menu::Edit, Starts::Here, COMPOSER_TEXT("Play from Cursor"),
        COMPOSER_TEXT("Play the track from the cursor on"), "Shift+Space", nullptr},
    Row{RollActions::Finer, Menu::View, Starts::Here, COMPOSER_TEXT("&Finer Grid"),
        COMPOSER_TEXT("Snap to the next shorter length"), "]", nullptr},
    Row{RollActions::Coarser, Menu::View, Starts::Here, COMPOSER_TEXT("&Coarser Grid"),
        COMPOSER_TEXT("Snap to the next longer length"), "[", nullptr},
    Row{RollActions::ZoomIn, Menu::View, Starts::Group, COMPOSER_TEXT("Zoom &In"),
        COMPOSER_TEXT("Show time wider (Ctrl+wheel)"), "Ctrl++", nullptr},
    Row{RollActions::ZoomOut, Menu::View, Starts::Here, COMPOSER_TEXT("Zoom &Out"),
        COMPOSER_TEXT("Show time narrower (Ctrl+wheel)"), "Ctrl+-", nullptr},
    Row{RollActions::RowsHigher, Menu::View, Starts::Here, COMPOSER_TEXT("&Higher Rows"),
        COMPOSER_TEXT("Show pitches higher (Ctrl+Shift+wheel)"), "Ctrl+Shift+Up", nullptr},
    Row{RollActions::RowsLower, Menu::View, Starts::Here, COMPOSER_TEXT("&Lower Rows"),
        COMPOSER_TEXT("Show pitches lower (Ctrl+Shift+wheel)"), "Ctrl+Shift+Down", nullptr},
    Row{RollActions::NormalSize, Menu::View, Starts::Here, COMPOSER_TEXT("&Normal Size"),
        COMPOSER_TEXT("Show time and pitches at their usual size"), "Ctrl+0", nullptr},
    Row{RollActions::Follow, Menu::View, Starts::Group, COMPOSER_TEXT("&Follow Playback"),
        COMPOSER_TEXT("Keep the playing position in sight"), "L", nullptr},
};

constexpr int plainLengthCount = 7; // of RollLengths

QAction *newSeparator(QObject *parent)
{
    auto *const separator = new QAction(parent);
    separator->setSeparator(true);
    return separator;
}

} // namespace

RollActions::RollActions(RollCommands &commands, QWidget &roll) : QObject(&roll), actions_(idCount)
{
    for (const auto &row : rows) {
        auto *action = new QAction(QCoreApplication::translate("RollActions", row.text), this);
        action->setShortcut(QKeySequence(QLatin1String(row.shortcut)));
        action->setShortcutContext(Qt::WidgetWithChildrenShortcut);
        const auto toolTip = QCoreApplication::translate("RollActions", row.toolTip);
        action->setToolTip(
            QStringLiteral("%1 (%2)").arg(toolTip, action->shortcut().toString(QKeySequence::NativeText)));
        action->setStatusTip(toolTip);
        if (row.run != nullptr)
            connect(action, &QAction::triggered, this, [&commands, run = row.run] { run(commands); });
        actions_[row.id] = action;
        auto &menu = row.menu == Menu::Edit ? editMenu_ : viewMenu_;
        if (row.starts == Starts::Group) {
            menu.append(newSeparator(this));
        }
        menu.append(action);
        roll.addAction(action);
    }
    addExclusive({SelectTool, DrawTool});
    actions_[SelectTool]->setChecked(true);
    actions_[Follow]->setCheckable(true);
    actions_[Follow]->setChecked(true);
    addSnapActions();
    addLengthActions(commands, roll);
    addEntryActions(commands, roll);
}

void RollActions::addExclusive(const QVector<Id> &ids)
{
    auto *group = new QActionGroup(this);
    for (const auto id : ids) {
        actions_[id]->setCheckable(true);
        group->addAction(actions_[id]);
    }
}

void RollActions::addSnapActions()
{
    auto *group = new QActionGroup(this);
    for (int choice = 0; choice < RollSnap::choiceCount(); ++choice) {
        auto *action = new QAction(group);
        action->setCheckable(true);
        connect(action, &QAction::triggered, this, [this, choice] { emit snapChosen(choice); });
        snapMenu_.append(action);
    }
}

QAction *RollActions::addKeyAction(const QString &text, const QString &key, QWidget &roll, const Run &run)
{
    auto *const action = new QAction(text, this);
    action->setShortcut(QKeySequence(key));
    action->setShortcutContext(Qt::WidgetWithChildrenShortcut);
    connect(action, &QAction::triggered, this, run);
    roll.addAction(action);
    return action;
}

// The keys 1 to 7 choose those that are no triplets.
void RollActions::addLengthActions(RollCommands &commands, QWidget &roll)
{
    const auto add = [&](const QString &text, const QString &key, const Run &run) {
        lengthMenu_.append(addKeyAction(text, key, roll, run));
        lengthMenu_.last()->setCheckable(true);
    };
    for (int choice = 0; choice < RollLengths::count(); ++choice)
        add(RollLengths::label(choice), choice < plainLengthCount ? QString::number(choice + 1) : QString(),
            [&commands, choice] { commands.chooseNewNoteLength(RollLengths::ticks(choice)); });
    lengthMenu_.append(newSeparator(this));
    add(tr("Dotted"), QStringLiteral("."),
        [&commands] { commands.chooseNewNoteLength(RollLengths::withDotToggled(commands.newNoteLength())); });
    dotted_ = lengthMenu_.last();
    add(tr("Triplet"), QStringLiteral("T"),
        [&commands] { commands.chooseNewNoteLength(RollLengths::withTripletToggled(commands.newNoteLength())); });
    triplet_ = lengthMenu_.last();
}

void RollActions::addEntryActions(RollCommands &commands, QWidget &roll)
{
    const auto letters = QStringLiteral("CDEFGAB");
    for (int letter = 0; letter < letters.size(); ++letter)
        entryMenu_.append(addKeyAction(tr("Note %1").arg(letters[letter]), letters[letter], roll,
                                       [&commands, letter] { commands.enterLetter(letter); }));
    entryMenu_.append(addKeyAction(tr("Rest"), QStringLiteral("Z"), roll, [&commands] { commands.enterRest(); }));
    entryMenu_.append(newSeparator(this));
    for (int letter = 0; letter < letters.size(); ++letter)
        entryMenu_.append(addKeyAction(tr("%1 into the Chord").arg(letters[letter]),
                                       QStringLiteral("Shift+") + letters[letter], roll,
                                       [&commands, letter] { commands.addLetterToChord(letter); }));
}

void RollActions::showNewNoteLength(Ticks length)
{
    for (int choice = 0; choice < RollLengths::count(); ++choice)
        lengthMenu_[choice]->setChecked(RollLengths::ticks(choice) == length);
    dotted_->setChecked(RollLengths::isDotted(length));
    triplet_->setChecked(RollLengths::isTriplet(length));
}

void RollActions::update(Selection selection, const RollSnap &snap)
{
    for (const auto id : {Cut, Copy, Duplicate, Delete, Lengthen, Shorten})
        actions_[id]->setEnabled(selection == Selection::Some);
    for (int choice = 0; choice < int(snapMenu_.size()); ++choice) {
        snapMenu_[choice]->setText(RollSnap::label(choice));
        snapMenu_[choice]->setToolTip(tr("Snap to %1").arg(RollSnap::label(choice)));
    }
    snapMenu_[snap.choice()]->setChecked(true);
}
