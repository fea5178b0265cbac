#include "ui/editor/EditorActions.h"

#include <QIcon>
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
    {"actionApply", "&Apply", "Ctrl+Return", "Make the song sound as the text says", "save"},
    {"actionSave", "Apply and &Save", "Ctrl+S", "Apply the changes, and save them to disk", "saveall"},
    {"actionRevert", "&Revert to Applied", "", "Take back every change since the last Apply, as one step to undo",
     "revert"},
    {"actionClose", "&Close", "Ctrl+W", "Close the editor", "exit", Scope::Window, group},
    {"actionUndo", "&Undo", "Ctrl+Z", "Take back the last change, of the text or of the notes", "undo"},
    {"actionRedo", "&Redo", "Ctrl+Shift+Z", "Make the change that was taken back again", "redo"},
    {"actionCut", "Cu&t", "Ctrl+X", "Move the selected text to the clipboard", "cut", Scope::Text, group},
    {"actionCopy", "&Copy", "Ctrl+C", "Copy the selected text to the clipboard", "copy", Scope::Text},
    {"actionPaste", "&Paste", "Ctrl+V", "Insert the text of the clipboard", "paste", Scope::Text},
    {"actionSelectAll", "Select &All", "Ctrl+A", "Select the whole text", "", Scope::Text},
    {"actionFind", "&Find…", "Ctrl+F", "Find in the text", "find", Scope::Window, group},
    {"actionFindNext", "Find &Next", "F3", "Find the next match", ""},
    {"actionFindPrevious", "Find Pre&vious", "Shift+F3", "Find the previous match", ""},
    {"actionReplace", "R&eplace…", "Ctrl+H", "Find and replace in the text", "replace"},
    {"actionGoToLine", "&Go to Line…", "Ctrl+G", "Put the caret on a line", "", Scope::Window, group},
    {"actionNextProblem", "Ne&xt Problem", "F8", "Go to the next error of the text", ""},
    {"actionPreviousProblem", "Previous Pro&blem", "Shift+F8", "Go to the previous error of the text", ""},
    {"actionFixProblem", "F&ix Problem", "Alt+Return", "Mend what is wrong at the caret, where there is one right way",
     ""},
    {"actionQuickRealign", "&Quick Realign", "Ctrl+R", "Move all notes onto the nearest 128th or tuplet of it", "snap"},
    {"actionRealignNotes", "&Realign Notes…", "Ctrl+Shift+R", "Move all notes onto the grids of your choice", ""},
    {"actionCleanQuantise", "&Clean Quantise", "", "Write all notes as a musician would, on the grid of each measure",
     ""},
    {"actionTranspose", "&Transpose…", "Ctrl+T", "Move all notes up or down", "transposeup", Scope::Window, group},
    {"actionChangeUnitLength", "Change &Unit Length…", "Ctrl+U", "Write all lengths in another unit", "", Scope::Window,
     group},
    {"actionChangeKey", "Change &Key…", "Ctrl+K", "Write all notes in another key; they sound as before", ""},
    {"actionSplitNotes", "&Split at Caret", "Ctrl+Shift+X", "Cut the selected notes, or all, in two at the caret", ""},
    {"actionJoinNotes", "&Join", "Ctrl+J", "Make one note of the selected notes of each pitch", ""},
    {"actionLegato", "&Legato", "Ctrl+Shift+J", "Let each selected note sound up to the next", ""},
    {"actionDoubleLengths", "&Double Lengths", "Ctrl+Shift+D", "Make the selected notes twice as long", "",
     Scope::Window, group},
    {"actionHalveLengths", "&Halve Lengths", "Ctrl+Shift+H", "Make the selected notes half as long", ""},
    {"actionQuantise", "&Quantise to Grid", "Ctrl+Shift+Q", "Move the selected notes onto the grid of the piano roll",
     "", Scope::Window, group},
    {"actionQuantiseHalf", "Quantise Half &Way", "", "Move the selected notes half of the way onto the grid", ""},
    {"actionInvertSelection", "&Invert Selection", "Ctrl+Shift+I", "Select the notes that are not selected", "",
     Scope::Window, group},
    {"actionSelectSamePitch", "Select Same &Pitch", "", "Select all notes that have the pitch of a selected one", ""},
    {"actionSelectPitchRange", "Select Pitch &Range", "",
     "Select all notes from the lowest to the highest pitch of the selected ones", ""},
    {"actionInsertMeasure", "Insert &Measure", "Ctrl+Shift+M", "Put an empty measure before the one at the caret", "",
     Scope::Window, group},
    {"actionDeleteMeasures", "Delete M&easures", "Ctrl+Shift+E",
     "Take out the measures of the selected notes, or the one at the caret", ""},
    {"actionPlayOrStop", "Play o&r Stop", "Ctrl+Space", "Play from where the caret is, or stop", ""},
    {"actionPlayFromCaret", "&Play from Caret", "F5", "Play from where the caret is", "playcaret"},
    {"actionPlayFromStart", "Play from &Start", "Shift+F5", "Play from the beginning", "play"},
    {"actionLoopSelection", "&Loop Selection", "F6", "Play the selection, or the whole tune, again and again", "loop"},
    {"actionStop", "S&top", "F7", "Stop playing", "stop"},
    {"actionWithSong", "&With the Song", "Shift+F6", "Hear the other parts of the song, too, that are not muted",
     "withsong", Scope::Window, Starts::Here, true},
    {"actionSlower", "Sl&ower", "F9", "Play slower; the tune keeps its tempo", "", Scope::Window, group},
    {"actionFaster", "&Faster", "F11", "Play faster; the tune keeps its tempo", ""},
    {"actionNormalTempo", "&Normal Tempo", "Shift+F9", "Play in the tempo of the tune", ""},
    {"actionShowRoll", "&Piano Roll", "F4", "Show the notes over a keyboard", "pianoroll", Scope::Window, Starts::Here,
     true},
    {"actionSwitchView", "&Switch between Text and Roll", "Ctrl+E", "Give the keyboard to the other view", ""},
    {"actionShowProblems", "P&roblems", "Ctrl+Shift+P", "Show the list of errors", "", Scope::Window, Starts::Here,
     true},
    {"actionWrapLines", "&Wrap Lines", "Alt+Z", "Break long lines at the edge of the window", "", Scope::Window, group,
     true},
    {"actionFollow", "&Follow Playback", "Ctrl+Shift+L", "Keep what sounds in view", "", Scope::Window, Starts::Here,
     true},
    {"actionZoomIn", "Zoom Text &In", "Ctrl++", "Make the text larger", "zoomin", Scope::Text, group},
    {"actionZoomOut", "Zoom Text &Out", "Ctrl+-", "Make the text smaller", "zoomout", Scope::Text},
    {"actionZoomNormal", "&Normal Text Size", "Ctrl+0", "Give the text its normal size", "", Scope::Text},
}};

} // namespace

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
            action->setIcon(QIcon(QStringLiteral(":/icons/%1.png").arg(QLatin1String(row.icon))));
        if (row.scope == Scope::Text) {
            action->setShortcutContext(Qt::WidgetShortcut);
            text.addAction(action);
        } else {
            window.addAction(action);
        }
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
