#pragma once

#include "ui/Shortcuts.h"

#include <QAction>
#include <QMap>

#include <vector>

class QMenu;
class QWidget;

// The commands of the editor window, apart from those of the piano roll: a table of texts, shortcuts, tool tips and
// icons. The window connects them and puts them into menus and tool bars.
class EditorActions : public QObject
{
    Q_OBJECT

public:
    enum Id {
        Apply,
        Save,
        Revert,
        Close,
        Undo,
        Redo,
        Cut,
        Copy,
        Paste,
        SelectAll,
        Find,
        FindNext,
        FindPrevious,
        Replace,
        GoToLine,
        NextProblem,
        PreviousProblem,
        FixProblem,
        QuickRealign,
        RealignNotes,
        CleanQuantise,
        Transpose,
        ChangeUnitLength,
        ChangeKey,
        SplitNotes,
        JoinNotes,
        Legato,
        DoubleLengths,
        HalveLengths,
        Quantise,
        QuantiseHalf,
        InvertSelection,
        SelectSamePitch,
        SelectPitchRange,
        InsertMeasure,
        DeleteMeasures,
        PlayOrStop,
        PlayFromCaret,
        PlayFromStart,
        LoopSelection,
        Stop,
        WithSong,
        Slower,
        Faster,
        NormalTempo,
        ShowRoll,
        SwitchView,
        ShowProblems,
        WrapLines,
        Follow,
        ZoomIn,
        ZoomOut,
        ZoomNormal,
        idCount
    };

    // The actions of the text alone are added to it and work while it has the focus; the rest to the window.
    EditorActions(QWidget &window, QWidget &text);

    QAction *operator[](Id id) const { return actions_[size_t(id)]; }
    static QVector<KeyRow> keyRows(); // of all commands of an editor
    // Adds the actions from first to last with the separators of the table.
    void fill(QMenu &menu, Id first, Id last) const;

private:
    std::vector<QAction *> actions_;
};
