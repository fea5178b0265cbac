#pragma once

#include "ui/roll/RollCommands.h"
#include "ui/roll/RollState.h"

#include <QMouseEvent>

// What the mouse does on the canvas: it turns gestures into commands that select, draw, move, copy and resize notes. A
// drag changes nothing while it lasts and becomes one command when the button is let go.
//
//   click            selects the note, or nothing and sets the cursor; Shift adds, Ctrl toggles
//   double click     inserts a note
//   drag             moves the selected notes, with Ctrl copies of them; at a note's right edge resizes
//   drag from empty  selects what the rectangle touches; Shift adds, Ctrl toggles. The drawing tool draws a note
//   Alt              leaves the grid
class RollMouse : public QObject
{
    Q_OBJECT

public:
    enum class Tool { Select, Draw };

    // Both must outlive the object.
    RollMouse(const RollState &state, RollCommands &commands, QObject *parent = nullptr);

    Tool tool() const { return tool_; }
    void setTool(Tool tool) { tool_ = tool; }

    void press(const QMouseEvent &event);
    void doublePress(const QMouseEvent &event);
    void move(const QPointF &position, Qt::KeyboardModifiers modifiers);
    void release(const QMouseEvent &event);
    // Ends the drag and changes nothing.
    void cancel();
    bool isDown() const { return isDown_; }
    const RollDrag &drag() const { return drag_; }

    // A right click acts on the note under it: selects it unless it is selected.
    void selectForMenu(const QPointF &position);

    int noteAt(const QPointF &position) const; // the uppermost there; -1 for none
    Qt::CursorShape cursorShape(const QPointF &position) const;

signals:
    void dragChanged();
    void notePressed(int pitch);
    void noteReleased();

private:
    struct Grip
    {
        int note = -1;
        bool isAtEnd = false;
    };

    Grip gripAt(const QPointF &position) const;
    bool adds() const; // to the selection
    void beginDrag();
    void dragNotes(const QPointF &position, bool snaps);
    void dragEnd(const QPointF &position, bool snaps);
    void drawNote(const QPointF &position, bool snaps);
    void finishDrag();
    void click();
    void finishBand(const QRectF &band);
    void beginDrawing(const QPointF &position, bool snaps);
    void sound(int pitch);
    Ticks snapped(Ticks tick, bool snaps) const;

    const RollState &state_;
    RollCommands &commands_;
    Tool tool_ = Tool::Select;

    bool isDown_ = false;
    RollDrag drag_;
    QPointF pressedAt_; // in the whole picture, so that scrolling does not move it
    Qt::KeyboardModifiers modifiers_;
    Grip grip_;
    RollNote gripped_;
    bool wasSelected_ = false;
    int soundingPitch_ = -1;
};
