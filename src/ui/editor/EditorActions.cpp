#include "ui/editor/EditorActions.h"

#include "ui/Icons.h"
#include "ui/editor/StepEntry.h"
#include "ui/roll/RollActions.h"

#include <QMenu>

#include <array>

namespace {

enum class Scope { Window, Text };
enum class Starts { Here, Group }; // Group: a separator stands before it

struct Row
{
    const char *objectName;
    const char *text;
    const char *shortcut;
    const char *tip;
    const char *icon;
    Scope scope = Scope::Window;
    Starts starts = Starts::Here;
    bool isCheckable = false;
};

constexpr auto group = Starts::Group;

// In the order of EditorActions::Id, which is the order of the menus.
constexpr std::array<Row, EditorActions::idCount> rows{{
    {"actionApply", QT_TRANSLATE_NOOP("EditorActions", "&Apply"), "Ctrl+Return",
     QT_TRANSLATE_NOOP("EditorActions", "Make the song sound as the text says"), "save"},
    {"actionSave", QT_TRANSLATE_NOOP("EditorActions", "Apply and &Save"), "Ctrl+S",
     QT_TRANSLATE_NOOP("EditorActions", "Apply the changes, and save them to disk"), "saveall"},
    {"actionRevert", QT_TRANSLATE_NOOP("EditorActions", "&Revert to Applied"), "",
     QT_TRANSLATE_NOOP("EditorActions", "Take back every change since the last Apply, as one step to undo"), "revert"},
    {"actionClose", QT_TRANSLATE_NOOP("EditorActions", "&Close"), "Ctrl+W",
     QT_TRANSLATE_NOOP("EditorActions", "Close the editor"), "exit", Scope::Window, group},
    {"actionUndo", QT_TRANSLATE_NOOP("EditorActions", "&Undo"), "Ctrl+Z",
     QT_TRANSLATE_NOOP("EditorActions", "Take back the last change, of the text or of the notes"), "undo"},
    {"actionRedo", QT_TRANSLATE_NOOP("EditorActions", "&Redo"), "Ctrl+Shift+Z",
     QT_TRANSLATE_NOOP("EditorActions", "Make the change that was taken back again"), "redo"},
    {"actionCut", QT_TRANSLATE_NOOP("EditorActions", "Cu&t"), "Ctrl+X",
     QT_TRANSLATE_NOOP("EditorActions", "Move the selected text to the clipboard"), "cut", Scope::Text, group},
    {"actionCopy", QT_TRANSLATE_NOOP("EditorActions", "&Copy"), "Ctrl+C",
     QT_TRANSLATE_NOOP("EditorActions", "Copy the selected text to the clipboard"), "copy", Scope::Text},
    {"actionPaste", QT_TRANSLATE_NOOP("EditorActions", "&Paste"), "Ctrl+V",
     QT_TRANSLATE_NOOP("EditorActions", "Insert the text of the clipboard"), "paste", Scope::Text},
    {"actionSelectAll", QT_TRANSLATE_NOOP("EditorActions", "Select &All"), "Ctrl+A",
     QT_TRANSLATE_NOOP("EditorActions", "Select the whole text"), "", Scope::Text},
    {"actionFind", QT_TRANSLATE_NOOP("EditorActions", "&Find…"), "Ctrl+F",
     QT_TRANSLATE_NOOP("EditorActions", "Find in the text"), "find", Scope::Window, group},
    {"actionFindNext", QT_TRANSLATE_NOOP("EditorActions", "Find &Next"), "F3",
     QT_TRANSLATE_NOOP("EditorActions", "Find the next match"), ""},
    {"actionFindPrevious", QT_TRANSLATE_NOOP("EditorActions", "Find Pre&vious"), "Shift+F3",
     QT_TRANSLATE_NOOP("EditorActions", "Find the previous match"), ""},
    {"actionReplace", QT_TRANSLATE_NOOP("EditorActions", "R&eplace…"), "Ctrl+H",
     QT_TRANSLATE_NOOP("EditorActions", "Find and replace in the text"), "replace"},
    {"actionGoToLine", QT_TRANSLATE_NOOP("EditorActions", "&Go to Line…"), "Ctrl+G",
     QT_TRANSLATE_NOOP("EditorActions", "Put the caret on a line"), "", Scope::Window, group},
    {"actionNextProblem", QT_TRANSLATE_NOOP("EditorActions", "Ne&xt Problem"), "F8",
     QT_TRANSLATE_NOOP("EditorActions", "Go to the next error of the text"), ""},
    {"actionPreviousProblem", QT_TRANSLATE_NOOP("EditorActions", "Previous Pro&blem"), "Shift+F8",
     QT_TRANSLATE_NOOP("EditorActions", "Go to the previous error of the text"), ""},
    {"actionFixProblem", QT_TRANSLATE_NOOP("EditorActions", "F&ix Problem"), "Alt+Return",
     QT_TRANSLATE_NOOP("EditorActions", "Mend what is wrong at the caret, where there is one right way"), ""},
    {"actionQuickRealign", QT_TRANSLATE_NOOP("EditorActions", "&Quick Realign"), "Ctrl+R",
     QT_TRANSLATE_NOOP("EditorActions", "Move all notes onto the nearest 128th or tuplet of it"), "snap"},
    {"actionRealignNotes", QT_TRANSLATE_NOOP("EditorActions", "&Realign Notes…"), "Ctrl+Shift+R",
     QT_TRANSLATE_NOOP("EditorActions", "Move all notes onto the grids of your choice"), ""},
    {"actionCleanQuantise", QT_TRANSLATE_NOOP("EditorActions", "&Clean Quantise"), "",
     QT_TRANSLATE_NOOP("EditorActions", "Write all notes as a musician would, on the grid of each measure"), ""},
    {"actionTranspose", QT_TRANSLATE_NOOP("EditorActions", "&Transpose…"), "Ctrl+T",
     QT_TRANSLATE_NOOP("EditorActions", "Move all notes up or down"), "transposeup", Scope::Window, group},
    {"actionChangeUnitLength", QT_TRANSLATE_NOOP("EditorActions", "Change &Unit Length…"), "Ctrl+U",
     QT_TRANSLATE_NOOP("EditorActions", "Write all lengths in another unit"), "", Scope::Window, group},
    {"actionChangeKey", QT_TRANSLATE_NOOP("EditorActions", "Change &Key…"), "Ctrl+K",
     QT_TRANSLATE_NOOP("EditorActions", "Write all notes in another key; they sound as before"), ""},
    {"actionSplitNotes", QT_TRANSLATE_NOOP("EditorActions", "&Split at Caret"), "Ctrl+Shift+X",
     QT_TRANSLATE_NOOP("EditorActions", "Cut the selected notes, or all, in two at the caret"), ""},
    {"actionJoinNotes", QT_TRANSLATE_NOOP("EditorActions", "&Join"), "Ctrl+J",
     QT_TRANSLATE_NOOP("EditorActions", "Make one note of the selected notes of each pitch"), ""},
    {"actionLegato", QT_TRANSLATE_NOOP("EditorActions", "&Legato"), "Ctrl+Shift+J",
     QT_TRANSLATE_NOOP("EditorActions", "Let each selected note sound up to the next"), ""},
    {"actionDoubleLengths", QT_TRANSLATE_NOOP("EditorActions", "&Double Lengths"), "Ctrl+Shift+D",
     QT_TRANSLATE_NOOP("EditorActions", "Make the selected notes twice as long"), "", Scope::Window, group},
    {"actionHalveLengths", QT_TRANSLATE_NOOP("EditorActions", "&Halve Lengths"), "Ctrl+Shift+H",
     QT_TRANSLATE_NOOP("EditorActions", "Make the selected notes half as long"), ""},
    {"actionQuantise", QT_TRANSLATE_NOOP("EditorActions", "&Quantise to Grid"), "Ctrl+Shift+Q",
     QT_TRANSLATE_NOOP("EditorActions", "Move the selected notes onto the grid of the piano roll"), "", Scope::Window,
     group},
    {"actionQuantiseHalf", QT_TRANSLATE_NOOP("EditorActions", "Quantise Half &Way"), "",
     QT_TRANSLATE_NOOP("EditorActions", "Move the selected notes half of the way onto the grid"), ""},
    {"actionInvertSelection", QT_TRANSLATE_NOOP("EditorActions", "&Invert Selection"), "Ctrl+Shift+I",
     QT_TRANSLATE_NOOP("EditorActions", "Select the notes that are not selected"), "", Scope::Window, group},
    {"actionSelectSamePitch", QT_TRANSLATE_NOOP("EditorActions", "Select Same &Pitch"), "",
     QT_TRANSLATE_NOOP("EditorActions", "Select all notes that have the pitch of a selected one"), ""},
    {"actionSelectPitchRange", QT_TRANSLATE_NOOP("EditorActions", "Select Pitch &Range"), "",
     QT_TRANSLATE_NOOP("EditorActions", "Select all notes from the lowest to the highest pitch of the selected ones"),
     ""},
    {"actionInsertMeasure", QT_TRANSLATE_NOOP("EditorActions", "Insert &Measure"), "Ctrl+Shift+M",
     QT_TRANSLATE_NOOP("EditorActions", "Put an empty measure before the one at the caret"), "", Scope::Window, group},
    {"actionDeleteMeasures", QT_TRANSLATE_NOOP("EditorActions", "Delete M&easures"), "Ctrl+Shift+E",
     QT_TRANSLATE_NOOP("EditorActions", "Take out the measures of the selected notes, or the one at the caret"), ""},
    {"actionPlayOrStop", QT_TRANSLATE_NOOP("EditorActions", "Play o&r Stop"), "Ctrl+Space",
     QT_TRANSLATE_NOOP("EditorActions", "Play from where the caret is, or stop"), ""},
    {"actionPlayFromCaret", QT_TRANSLATE_NOOP("EditorActions", "&Play from Caret"), "F5",
     QT_TRANSLATE_NOOP("EditorActions", "Play from where the caret is"), "playcaret"},
    {"actionPlayFromStart", QT_TRANSLATE_NOOP("EditorActions", "Play from &Start"), "Shift+F5",
     QT_TRANSLATE_NOOP("EditorActions", "Play from the beginning"), "play"},
    {"actionLoopSelection", QT_TRANSLATE_NOOP("EditorActions", "&Loop Selection"), "F6",
     QT_TRANSLATE_NOOP("EditorActions", "Play the selection, or the whole tune, again and again"), "loop"},
    {"actionStop", QT_TRANSLATE_NOOP("EditorActions", "S&top"), "F7",
     QT_TRANSLATE_NOOP("EditorActions", "Stop playing"), "stop"},
    {"actionWithSong", QT_TRANSLATE_NOOP("EditorActions", "&With the Song"), "Shift+F6",
     QT_TRANSLATE_NOOP("EditorActions", "Hear the other parts of the song, too, that are not muted"), "withsong",
     Scope::Window, Starts::Here, true},
    {"actionSlower", QT_TRANSLATE_NOOP("EditorActions", "Sl&ower"), "F9",
     QT_TRANSLATE_NOOP("EditorActions", "Play slower; the tune keeps its tempo"), "", Scope::Window, group},
    {"actionFaster", QT_TRANSLATE_NOOP("EditorActions", "&Faster"), "F11",
     QT_TRANSLATE_NOOP("EditorActions", "Play faster; the tune keeps its tempo"), ""},
    {"actionNormalTempo", QT_TRANSLATE_NOOP("EditorActions", "&Normal Tempo"), "Shift+F9",
     QT_TRANSLATE_NOOP("EditorActions", "Play in the tempo of the tune"), ""},
    {"actionShowRoll", QT_TRANSLATE_NOOP("EditorActions", "&Piano Roll"), "F4",
     QT_TRANSLATE_NOOP("EditorActions", "Show the notes over a keyboard"), "pianoroll", Scope::Window, Starts::Here,
     true},
    {"actionSwitchView", QT_TRANSLATE_NOOP("EditorActions", "&Switch between Text and Roll"), "Ctrl+E",
     QT_TRANSLATE_NOOP("EditorActions", "Give the keyboard to the other view"), ""},
    {"actionShowProblems", QT_TRANSLATE_NOOP("EditorActions", "P&roblems"), "Ctrl+Shift+P",
     QT_TRANSLATE_NOOP("EditorActions", "Show the list of errors"), "", Scope::Window, Starts::Here, true},
    {"actionWrapLines", QT_TRANSLATE_NOOP("EditorActions", "&Wrap Lines"), "Alt+Z",
     QT_TRANSLATE_NOOP("EditorActions", "Break long lines at the edge of the window"), "", Scope::Window, group, true},
    {"actionFollow", QT_TRANSLATE_NOOP("EditorActions", "&Follow Playback"), "Ctrl+Shift+L",
     QT_TRANSLATE_NOOP("EditorActions", "Keep what sounds in view"), "", Scope::Window, Starts::Here, true},
    {"actionZoomIn", QT_TRANSLATE_NOOP("EditorActions", "Zoom Text &In"), "Ctrl++",
     QT_TRANSLATE_NOOP("EditorActions", "Make the text larger"), "zoomin", Scope::Text, group},
    {"actionZoomOut", QT_TRANSLATE_NOOP("EditorActions", "Zoom Text &Out"), "Ctrl+-",
     QT_TRANSLATE_NOOP("EditorActions", "Make the text smaller"), "zoomout", Scope::Text},
    {"actionZoomNormal", QT_TRANSLATE_NOOP("EditorActions", "&Normal Text Size"), "Ctrl+0",
     QT_TRANSLATE_NOOP("EditorActions", "Give the text its normal size"), "", Scope::Text},
}};

QString idOf(const Row &row)
{
    return QStringLiteral("editor.") + QLatin1String(row.objectName);
}

} // namespace

QVector<KeyRow> EditorActions::keyRows()
{
    QVector<KeyRow> keys;
    for (const auto &row : rows)
        keys.append({idOf(row), row.scope == Scope::Text ? KeyScope::Text : KeyScope::Editor, plainText(tr(row.text)),
                     QKeySequence(QLatin1String(row.shortcut))});
    keys.append(StepEntry::keyRow());
    return keys + RollActions::keyRows();
}

EditorActions::EditorActions(QWidget &window, QWidget &text) : QObject(&window)
{
    for (const auto &row : rows) {
        auto *const action = new QAction(tr(row.text), this);
        action->setObjectName(QLatin1String(row.objectName));
        const auto shortcut = QKeySequence(QLatin1String(row.shortcut));
        action->setShortcut(shortcut);
        const auto key = shortcut.toString(QKeySequence::NativeText);
        action->setToolTip(key.isEmpty() ? tr(row.tip) : QStringLiteral("%1 (%2)").arg(tr(row.tip), key));
        action->setStatusTip(tr(row.tip));
        action->setCheckable(row.isCheckable);
        if (*row.icon != '\0')
            action->setIcon(icon(row.icon));
        if (row.scope == Scope::Text) {
            action->setShortcutContext(Qt::WidgetShortcut);
            text.addAction(action);
        } else {
            window.addAction(action);
        }
        nameKeyOf(*action, idOf(row));
        actions_.push_back(action);
    }
}

void EditorActions::fill(QMenu &menu, Id first, Id last) const
{
    for (auto id = size_t(first); id <= size_t(last); ++id) {
        if (rows[id].starts == Starts::Group)
            menu.addSeparator();
        menu.addAction(actions_[id]);
    }
}
