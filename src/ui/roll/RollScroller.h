#pragma once

#include "ui/roll/RollState.h"

#include <QScrollBar>
#include <QWidget>

// Where in its picture the piano roll looks: moves the scroll bars, which move the roll.
class RollScroller
{
public:
    // All must outlive the scroller. `canvas` is what shows the picture.
    RollScroller(const RollState &state, const QWidget &canvas, QScrollBar &horizontal, QScrollBar &vertical);

    // To the size of the picture and the canvas.
    void updateRanges();

    // Scroll as little as needed.
    void showTick(Ticks tick);
    void showPitch(int pitch);
    void showNote(const RollNote &note);

    void showPitchInMiddle(int pitch);
    void showMiddleOfNotes(); // in pitch
    // Turns the page when the playing position leaves it.
    void follow(Ticks tick);

    void pan(const QPoint &distance);
    // The point of the old picture under the anchor stays there.
    void keepInPlace(const QPoint &anchor, const RollGeometry &before);
    // Towards a mouse outside, the faster the farther; makes room behind the end.
    void chase(const QPoint &mouse);

private:
    const RollState &state_;
    const QWidget &canvas_;
    QScrollBar &horizontal_;
    QScrollBar &vertical_;
};
