#pragma once

#include "core/Ticks.h"
#include "ui/Shortcuts.h"

#include <QAction>
#include <QVector>

#include <array>
#include <functional>

class QMenu;
class QWidget;
class RollCommands;
class RollSnap;

// The commands of the piano roll as actions: those about notes and cursor run by themselves, the roll connects those
// about the view and the tools. Their shortcuts work while the roll has the focus; the window puts the actions into its
// menus and tool bars.
class RollActions : public QObject
{
    Q_OBJECT

public:
    enum Id {
        SelectTool,
        DrawTool,
        InsertNote,
        Cut,
        Copy,
        Paste,
        Duplicate,
        Delete,
        SelectAll,
        SelectNone,
        SelectNext,
        SelectPrevious,
        ExtendNext,
        ExtendPrevious,
        MoveEarlier,
        MoveLater,
        MoveUp,
        MoveDown,
        MoveOctaveUp,
        MoveOctaveDown,
        MoveMeasureEarlier,
        MoveMeasureLater,
        Lengthen,
        Shorten,
        CursorToStart,
        CursorToEnd,
        PlayOrStop,
        PlayFromCursor,
        Finer,
        Coarser,
        ZoomIn,
        ZoomOut,
        RowsHigher,
        RowsLower,
        NormalSize,
        Follow,
        idCount
    };

    // Adds the actions to the roll, which owns this object. The commands must outlive it.
    RollActions(RollCommands &commands, QWidget &roll);

    static QVector<KeyRow> keyRows();
    QAction *action(Id id) const { return actions_[id]; }

    // In the order of a menu, with separators.
    enum class Menu { Edit, Selection, Move, View };
    const QVector<QAction *> &actionsOf(Menu menu) const { return menus_[size_t(menu)]; }
    // All but those of the view, selection and movement in menus of their own.
    void fillEditMenu(QMenu &menu) const;
    const QVector<QAction *> &snapActions() const { return snapMenu_; }     // exclusive and checkable
    const QVector<QAction *> &lengthActions() const { return lengthMenu_; } // of new notes; those of it are checked
    const QVector<QAction *> &entryActions() const { return entryMenu_; }   // notes by their letters, and rests

    enum class Selection { None, Some };
    // What depends on the selection and on the grid.
    void update(Selection selection, const RollSnap &snap);
    void showNewNoteLength(Ticks length);

signals:
    void snapChosen(int choice);

private:
    void addExclusive(const QVector<Id> &ids);
    void addSnapActions();
    void addLengthActions(RollCommands &commands, QWidget &roll);
    void addEntryActions(RollCommands &commands, QWidget &roll);
    using Run = std::function<void()>;
    QAction *addKeyAction(const KeyRow &row, QWidget &roll, const Run &run);

    QVector<QAction *> actions_;
    std::array<QVector<QAction *>, 4> menus_;
    QVector<QAction *> snapMenu_;
    QVector<QAction *> lengthMenu_;
    QVector<QAction *> entryMenu_;
    QAction *dotted_ = nullptr;
    QAction *triplet_ = nullptr;
};
