#include "ui/roll/RollActions.h"

#include "ui/roll/RollCommands.h"
#include "ui/roll/RollSnap.h"

#include <QActionGroup>
#include <QCoreApplication>
#include <QKeySequence>
#include <QMenu>
#include <QWidget>

#include <array>

namespace {

using Direction = RollCommands::Direction;
using Selecting = RollCommands::Selecting;
constexpr auto semitonesPerOctave = 12;

using Menu = RollActions::Menu;
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

// The order of the rows is the order of the menus.
const std::array rows{
    Row{RollActions::SelectTool, Menu::Edit, Starts::Here, QT_TRANSLATE_NOOP("RollActions", "&Select Notes"),
        QT_TRANSLATE_NOOP("RollActions", "Select, move and resize notes with the mouse; a double click inserts one"),
        "S", nullptr},
    Row{RollActions::DrawTool, Menu::Edit, Starts::Here, QT_TRANSLATE_NOOP("RollActions", "&Draw Notes"),
        QT_TRANSLATE_NOOP("RollActions", "Draw notes with the mouse"), "P", nullptr},
    Row{RollActions::InsertNote, Menu::Edit, Starts::Group, QT_TRANSLATE_NOOP("RollActions", "&Insert Note"),
        QT_TRANSLATE_NOOP("RollActions", "Insert a note at the cursor"), "Ins",
        [](RollCommands &commands) { commands.insertAtCursor(); }},
    Row{RollActions::Cut, Menu::Edit, Starts::Group, QT_TRANSLATE_NOOP("RollActions", "Cu&t Notes"),
        QT_TRANSLATE_NOOP("RollActions", "Move the selected notes to the clipboard"), "Ctrl+X",
        [](RollCommands &commands) { commands.cut(); }},
    Row{RollActions::Copy, Menu::Edit, Starts::Here, QT_TRANSLATE_NOOP("RollActions", "&Copy Notes"),
        QT_TRANSLATE_NOOP("RollActions", "Copy the selected notes to the clipboard, as ABC"), "Ctrl+C",
        [](RollCommands &commands) { commands.copy(); }},
    Row{RollActions::Paste, Menu::Edit, Starts::Here, QT_TRANSLATE_NOOP("RollActions", "&Paste Notes"),
        QT_TRANSLATE_NOOP("RollActions", "Insert the notes of the clipboard at the cursor"), "Ctrl+V",
        [](RollCommands &commands) { commands.paste(); }},
    Row{RollActions::Duplicate, Menu::Edit, Starts::Here, QT_TRANSLATE_NOOP("RollActions", "D&uplicate Notes"),
        QT_TRANSLATE_NOOP("RollActions", "Repeat the selected notes behind themselves"), "Ctrl+D",
        [](RollCommands &commands) { commands.duplicate(); }},
    Row{RollActions::Delete, Menu::Edit, Starts::Here, QT_TRANSLATE_NOOP("RollActions", "Delete N&otes"),
        QT_TRANSLATE_NOOP("RollActions", "Delete the selected notes"), "Del",
        [](RollCommands &commands) { commands.removeSelected(); }},
    Row{RollActions::SelectAll, Menu::Selection, Starts::Group, QT_TRANSLATE_NOOP("RollActions", "Select &All Notes"),
        QT_TRANSLATE_NOOP("RollActions", "Select every note"), "Ctrl+A",
        [](RollCommands &commands) { commands.selectAll(); }},
    Row{RollActions::SelectNone, Menu::Selection, Starts::Here, QT_TRANSLATE_NOOP("RollActions", "Select &No Notes"),
        QT_TRANSLATE_NOOP("RollActions", "Take back the selection, or the drag in progress"), "Esc", nullptr},
    Row{RollActions::SelectNext, Menu::Selection, Starts::Here, QT_TRANSLATE_NOOP("RollActions", "Select Next Note"),
        QT_TRANSLATE_NOOP("RollActions", "Select the note after the selection or the cursor"), "Alt+Right",
        [](RollCommands &commands) { commands.selectNeighbour(Direction::Forward, Selecting::Replace); }},
    Row{RollActions::SelectPrevious, Menu::Selection, Starts::Here,
        QT_TRANSLATE_NOOP("RollActions", "Select Previous Note"),
        QT_TRANSLATE_NOOP("RollActions", "Select the note before the selection or the cursor"), "Alt+Left",
        [](RollCommands &commands) { commands.selectNeighbour(Direction::Back, Selecting::Replace); }},
    Row{RollActions::ExtendNext, Menu::Selection, Starts::Here,
        QT_TRANSLATE_NOOP("RollActions", "Extend Selection to Next Note"),
        QT_TRANSLATE_NOOP("RollActions", "Add the next note to the selection"), "Alt+Shift+Right",
        [](RollCommands &commands) { commands.selectNeighbour(Direction::Forward, Selecting::Extend); }},
    Row{RollActions::ExtendPrevious, Menu::Selection, Starts::Here,
        QT_TRANSLATE_NOOP("RollActions", "Extend Selection to Previous Note"),
        QT_TRANSLATE_NOOP("RollActions", "Add the previous note to the selection"), "Alt+Shift+Left",
        [](RollCommands &commands) { commands.selectNeighbour(Direction::Back, Selecting::Extend); }},
    Row{RollActions::MoveEarlier, Menu::Move, Starts::Group, QT_TRANSLATE_NOOP("RollActions", "Move Earlier"),
        QT_TRANSLATE_NOOP("RollActions", "Move the selected notes, or the cursor, one grid step back"), "Left",
        [](RollCommands &commands) { commands.moveByStep(Direction::Back); }},
    Row{RollActions::MoveLater, Menu::Move, Starts::Here, QT_TRANSLATE_NOOP("RollActions", "Move Later"),
        QT_TRANSLATE_NOOP("RollActions", "Move the selected notes, or the cursor, one grid step on"), "Right",
        [](RollCommands &commands) { commands.moveByStep(Direction::Forward); }},
    Row{RollActions::MoveUp, Menu::Move, Starts::Here, QT_TRANSLATE_NOOP("RollActions", "Move Up"),
        QT_TRANSLATE_NOOP("RollActions", "Move the selected notes, or the cursor, a semitone up"), "Up",
        [](RollCommands &commands) { commands.moveBySemitones(1); }},
    Row{RollActions::MoveDown, Menu::Move, Starts::Here, QT_TRANSLATE_NOOP("RollActions", "Move Down"),
        QT_TRANSLATE_NOOP("RollActions", "Move the selected notes, or the cursor, a semitone down"), "Down",
        [](RollCommands &commands) { commands.moveBySemitones(-1); }},
    Row{RollActions::MoveOctaveUp, Menu::Move, Starts::Here, QT_TRANSLATE_NOOP("RollActions", "Move an Octave Up"),
        QT_TRANSLATE_NOOP("RollActions", "Move the selected notes, or the cursor, an octave up"), "Ctrl+Up",
        [](RollCommands &commands) { commands.moveBySemitones(semitonesPerOctave); }},
    Row{RollActions::MoveOctaveDown, Menu::Move, Starts::Here, QT_TRANSLATE_NOOP("RollActions", "Move an Octave Down"),
        QT_TRANSLATE_NOOP("RollActions", "Move the selected notes, or the cursor, an octave down"), "Ctrl+Down",
        [](RollCommands &commands) { commands.moveBySemitones(-semitonesPerOctave); }},
    Row{RollActions::MoveMeasureEarlier, Menu::Move, Starts::Here,
        QT_TRANSLATE_NOOP("RollActions", "Move a Measure Earlier"),
        QT_TRANSLATE_NOOP("RollActions", "Move the selected notes a measure back, or the cursor to its start"),
        "Ctrl+Left", [](RollCommands &commands) { commands.moveByMeasure(Direction::Back); }},
    Row{RollActions::MoveMeasureLater, Menu::Move, Starts::Here,
        QT_TRANSLATE_NOOP("RollActions", "Move a Measure Later"),
        QT_TRANSLATE_NOOP("RollActions", "Move the selected notes a measure on, or the cursor to the next one"),
        "Ctrl+Right", [](RollCommands &commands) { commands.moveByMeasure(Direction::Forward); }},
    Row{RollActions::Lengthen, Menu::Edit, Starts::Group, QT_TRANSLATE_NOOP("RollActions", "&Lengthen"),
        QT_TRANSLATE_NOOP("RollActions", "Make the selected notes one grid step longer"), "Shift+Right",
        [](RollCommands &commands) { commands.resizeByStep(Direction::Forward); }},
    Row{RollActions::Shorten, Menu::Edit, Starts::Here, QT_TRANSLATE_NOOP("RollActions", "Sho&rten"),
        QT_TRANSLATE_NOOP("RollActions", "Make the selected notes one grid step shorter"), "Shift+Left",
        [](RollCommands &commands) { commands.resizeByStep(Direction::Back); }},
    Row{RollActions::CursorToStart, Menu::Move, Starts::Group, QT_TRANSLATE_NOOP("RollActions", "Cursor to Start"),
        QT_TRANSLATE_NOOP("RollActions", "Set the cursor to the start of the track"), "Home",
        [](RollCommands &commands) { commands.setCursor(0); }},
    Row{RollActions::CursorToEnd, Menu::Move, Starts::Here, QT_TRANSLATE_NOOP("RollActions", "Cursor to End"),
        QT_TRANSLATE_NOOP("RollActions", "Set the cursor behind the last note"), "End",
        [](RollCommands &commands) { commands.setCursorToEnd(); }},
    Row{RollActions::PlayOrStop, Menu::Edit, Starts::Group, QT_TRANSLATE_NOOP("RollActions", "Play or Stop"),
        QT_TRANSLATE_NOOP("RollActions", "Play the track from the cursor on, or stop what plays"), "Space", nullptr},
    Row{RollActions::PlayFromCursor, Menu::Edit, Starts::Here, QT_TRANSLATE_NOOP("RollActions", "Play from Cursor"),
        QT_TRANSLATE_NOOP("RollActions", "Play the track from the cursor on"), "Shift+Space", nullptr},
    Row{RollActions::Finer, Menu::View, Starts::Here, QT_TRANSLATE_NOOP("RollActions", "Fin&er Grid"),
        QT_TRANSLATE_NOOP("RollActions", "Snap to the next shorter length"), "]", nullptr},
    Row{RollActions::Coarser, Menu::View, Starts::Here, QT_TRANSLATE_NOOP("RollActions", "&Coarser Grid"),
        QT_TRANSLATE_NOOP("RollActions", "Snap to the next longer length"), "[", nullptr},
    Row{RollActions::ZoomIn, Menu::View, Starts::Group, QT_TRANSLATE_NOOP("RollActions", "&Zoom In"),
        QT_TRANSLATE_NOOP("RollActions", "Show time wider (Ctrl+wheel)"), "Ctrl++", nullptr},
    Row{RollActions::ZoomOut, Menu::View, Starts::Here, QT_TRANSLATE_NOOP("RollActions", "Zoom O&ut"),
        QT_TRANSLATE_NOOP("RollActions", "Show time narrower (Ctrl+wheel)"), "Ctrl+-", nullptr},
    Row{RollActions::RowsHigher, Menu::View, Starts::Here, QT_TRANSLATE_NOOP("RollActions", "&Higher Rows"),
        QT_TRANSLATE_NOOP("RollActions", "Show pitches higher (Ctrl+Shift+wheel)"), "Ctrl+Shift+Up", nullptr},
    Row{RollActions::RowsLower, Menu::View, Starts::Here, QT_TRANSLATE_NOOP("RollActions", "&Lower Rows"),
        QT_TRANSLATE_NOOP("RollActions", "Show pitches lower (Ctrl+Shift+wheel)"), "Ctrl+Shift+Down", nullptr},
    Row{RollActions::NormalSize, Menu::View, Starts::Here, QT_TRANSLATE_NOOP("RollActions", "Nor&mal Size"),
        QT_TRANSLATE_NOOP("RollActions", "Show time and pitches at their usual size"), "Ctrl+0", nullptr},
    Row{RollActions::Follow, Menu::View, Starts::Group, QT_TRANSLATE_NOOP("RollActions", "Follow Pla&yback"),
        QT_TRANSLATE_NOOP("RollActions", "Keep the playing position in sight"), "L", nullptr},
};

constexpr int plainLengthCount = 7; // of RollLengths
const auto letters = QStringLiteral("CDEFGAB");

KeyRow keyRow(const QString &id, const QString &text, const QString &key)
{
    return {QStringLiteral("roll.") + id, KeyScope::Roll, text, QKeySequence(key)};
}

KeyRow keyRow(const Row &row)
{
    return keyRow(plainText(QLatin1String(row.text)), plainText(QCoreApplication::translate("RollActions", row.text)),
                  QLatin1String(row.shortcut));
}

// The keys 1 to 7 choose those that are no triplets; the last two are the switches.
QVector<KeyRow> lengthKeys()
{
    QVector<KeyRow> keys;
    for (int choice = 0; choice < RollLengths::count(); ++choice)
        keys.append(keyRow(QStringLiteral("length %1").arg(choice + 1), RollLengths::label(choice),
                           choice < plainLengthCount ? QString::number(choice + 1) : QString()));
    keys.append(keyRow(QStringLiteral("dotted"), RollActions::tr("Dotted"), QStringLiteral(".")));
    keys.append(keyRow(QStringLiteral("triplet"), RollActions::tr("Triplet"), QStringLiteral("T")));
    return keys;
}

// The notes by their letters, a rest, the notes into the chord.
QVector<KeyRow> entryKeys()
{
    QVector<KeyRow> keys;
    for (const auto letter : letters)
        keys.append(keyRow(QStringLiteral("note %1").arg(letter), RollActions::tr("Note %1").arg(letter), letter));
    keys.append(keyRow(QStringLiteral("rest"), RollActions::tr("Rest"), QStringLiteral("Z")));
    for (const auto letter : letters)
        keys.append(keyRow(QStringLiteral("chord %1").arg(letter), RollActions::tr("%1 into the Chord").arg(letter),
                           QStringLiteral("Shift+") + letter));
    return keys;
}

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
        nameKeyOf(*action, keyRow(row).id);
        if (row.run != nullptr)
            connect(action, &QAction::triggered, this, [&commands, run = row.run] { run(commands); });
        actions_[row.id] = action;
        auto &menu = menus_[size_t(row.menu)];
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

void RollActions::fillEditMenu(QMenu &menu) const
{
    const auto add = [this](QMenu &to, Menu from) {
        for (auto *const action : actionsOf(from))
            to.addAction(action);
        to.setToolTipsVisible(true);
    };
    add(menu, Menu::Edit);
    menu.addSeparator();
    add(*menu.addMenu(tr("Selectio&n")), Menu::Selection);
    add(*menu.addMenu(tr("&Move")), Menu::Move);
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

QVector<KeyRow> RollActions::keyRows()
{
    QVector<KeyRow> keys;
    for (const auto &row : rows)
        keys.append(keyRow(row));
    return keys + lengthKeys() + entryKeys();
}

QAction *RollActions::addKeyAction(const KeyRow &row, QWidget &roll, const Run &run)
{
    auto *const action = new QAction(row.text, this);
    action->setShortcut(row.usual);
    nameKeyOf(*action, row.id);
    action->setShortcutContext(Qt::WidgetWithChildrenShortcut);
    connect(action, &QAction::triggered, this, run);
    roll.addAction(action);
    return action;
}

void RollActions::addLengthActions(RollCommands &commands, QWidget &roll)
{
    const auto keys = lengthKeys();
    const auto add = [&](int index, const Run &run) {
        lengthMenu_.append(addKeyAction(keys[index], roll, run));
        lengthMenu_.last()->setCheckable(true);
    };
    const int count = RollLengths::count();
    for (int choice = 0; choice < count; ++choice)
        add(choice, [&commands, choice] { commands.chooseNewNoteLength(RollLengths::ticks(choice)); });
    lengthMenu_.append(newSeparator(this));
    add(count, [&commands] { commands.chooseNewNoteLength(RollLengths::withDotToggled(commands.newNoteLength())); });
    dotted_ = lengthMenu_.last();
    add(count + 1,
        [&commands] { commands.chooseNewNoteLength(RollLengths::withTripletToggled(commands.newNoteLength())); });
    triplet_ = lengthMenu_.last();
}

void RollActions::addEntryActions(RollCommands &commands, QWidget &roll)
{
    const auto keys = entryKeys();
    const auto count = int(letters.size());
    for (int letter = 0; letter < count; ++letter)
        entryMenu_.append(addKeyAction(keys[letter], roll, [&commands, letter] { commands.enterLetter(letter); }));
    entryMenu_.append(addKeyAction(keys[count], roll, [&commands] { commands.enterRest(); }));
    entryMenu_.append(newSeparator(this));
    for (int letter = 0; letter < count; ++letter)
        entryMenu_.append(
            addKeyAction(keys[count + 1 + letter], roll, [&commands, letter] { commands.addLetterToChord(letter); }));
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
