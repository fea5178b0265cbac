// The events of the piano roll.
#include "edit/NoteText.h"
#include "settings/Settings.h"
#include "ui/SharpPainter.h"
#include "ui/Theme.h"
#include "ui/roll/PianoRoll.h"
#include "ui/roll/RollKeyboard.h"
#include "ui/roll/RollRuler.h"

#include <QContextMenuEvent>
#include <QHelpEvent>
#include <QMenu>
#include <QPainter>
#include <QScrollBar>
#include <QToolTip>

#include <cmath>

namespace {

constexpr int wheelNotch = 120;

} // namespace

void PianoRoll::scrollContentsBy(int dx, int dy)
{
    auto &geometry = state_.geometry;
    geometry.setScroll({horizontalScrollBar()->value(), verticalScrollBar()->value()});
    // Only whole pixels of the screen can be moved.
    const auto isWhole = [&geometry](int distance) {
        const auto pixels = distance * geometry.devicePixelRatio();
        return pixels == std::round(pixels);
    };
    const bool moves = isWhole(dx) && isWhole(dy) && !mouse_.drag().isRunning();
    if (moves)
        viewport()->scroll(dx, dy);
    else
        viewport()->update();
    if (dx != 0)
        ruler_->update(); // its marks at the left edge stay
    if (dy != 0)
        keyboard_->update();
}

// The frame says whether the keys are here. It lies outside what scrolls.
bool PianoRoll::event(QEvent *event)
{
    const bool isHandled = QAbstractScrollArea::event(event);
    if (event->type() == QEvent::FocusIn || event->type() == QEvent::FocusOut)
        update();
    if (event->type() != QEvent::Paint)
        return isHandled;
    QPainter painter(this);
    painter.setPen(QPen(hasFocus() ? focusColour() : palette().color(QPalette::Mid), 2 * frameWidth()));
    painter.drawRect(rect()); // the outer half of the line is cut off
    return isHandled;
}

bool PianoRoll::viewportEvent(QEvent *event)
{
    if (event->type() == QEvent::ToolTip) {
        const auto *help = static_cast<QHelpEvent *>(event);
        const auto note = mouse_.noteAt(help->pos());
        if (note >= 0)
            QToolTip::showText(help->globalPos(), state_.noteText(state_.notes[note]), viewport());
        else
            QToolTip::hideText();
        return true;
    }
    if (event->type() == QEvent::Leave) {
        setKeyUnderMouse(std::nullopt);
        emit statusChanged({});
    }
    return QAbstractScrollArea::viewportEvent(event);
}

void PianoRoll::paintEvent(QPaintEvent *event)
{
    SharpPainter painter(viewport());
    for (const auto &rect : event->region()) {
        painter.setClipRect(rect);
        painter_.paint(painter, state_, mouse_.drag(), rect);
    }
}

void PianoRoll::resizeEvent(QResizeEvent *event)
{
    QAbstractScrollArea::resizeEvent(event);
    layOut();
    // What was in the middle stays there.
    if (event->oldSize().isValid())
        verticalScrollBar()->setValue(verticalScrollBar()->value() +
                                      (event->oldSize().height() - event->size().height()) / 2);
}

void PianoRoll::layOut()
{
    state_.geometry.setDevicePixelRatio(devicePixelRatioF());
    const QMargins margins(keyboard_->sizeHint().width(), ruler_->sizeHint().height(), 0, 0);
    if (viewportMargins() != margins)
        setViewportMargins(margins);
    const auto view = viewport()->geometry();
    keyboard_->setGeometry(view.left() - margins.left(), view.top(), margins.left(), view.height());
    ruler_->setGeometry(view.left(), view.top() - margins.top(), view.width(), margins.top());
    scroller_.updateRanges();
}

void PianoRoll::showEvent(QShowEvent *event)
{
    QAbstractScrollArea::showEvent(event);
    // The row of middle C, until there are notes to show.
    if (!isCentred_)
        scroller_.showPitchInMiddle(state_.cursorPitch);
    centreOnce();
}

void PianoRoll::changeEvent(QEvent *event)
{
    QAbstractScrollArea::changeEvent(event);
    if (event->type() == QEvent::PaletteChange || event->type() == QEvent::FontChange)
        readColours();
}

void PianoRoll::wheelEvent(QWheelEvent *event)
{
    if (event->modifiers() & Qt::ControlModifier)
        wheelZoom(*event);
    else if (event->modifiers() & Qt::ShiftModifier)
        horizontalScrollBar()->setValue(horizontalScrollBar()->value() - event->angleDelta().y());
    else
        QAbstractScrollArea::wheelEvent(event);
    event->accept();
}

void PianoRoll::wheelZoom(const QWheelEvent &event)
{
    // Fine wheels send parts of a notch.
    wheelRest_ += event.angleDelta().y();
    const auto steps = wheelRest_ / wheelNotch;
    wheelRest_ %= wheelNotch;
    const bool isVertical = event.modifiers() & Qt::ShiftModifier;
    const auto &geometry = state_.geometry;
    zoom(geometry.hScale() + (isVertical ? 0 : steps), geometry.vScale() + (isVertical ? steps : 0),
         event.position().toPoint());
}

void PianoRoll::mousePressEvent(QMouseEvent *event)
{
    if (event->button() == Qt::MiddleButton) {
        panFrom_ = event->pos();
        viewport()->setCursor(Qt::ClosedHandCursor);
    }
    mouse_.press(*event);
}

void PianoRoll::mouseDoubleClickEvent(QMouseEvent *event)
{
    mouse_.doublePress(*event);
}

void PianoRoll::mouseMoveEvent(QMouseEvent *event)
{
    mousePosition_ = event->pos();
    mouseModifiers_ = event->modifiers();
    if (panFrom_) {
        scroller_.pan(event->pos() - *panFrom_);
        panFrom_ = event->pos();
        return;
    }
    mouse_.move(event->pos(), event->modifiers());
    setKeyUnderMouse(state_.geometry.pitch(event->pos().y()));
    emit statusChanged(statusAt(event->pos()));
    if (!mouse_.isDown())
        viewport()->setCursor(mouse_.cursorShape(event->pos()));
    if (mouse_.drag().isRunning() && !viewport()->rect().contains(event->pos()))
        edgeScroll_.start();
}

void PianoRoll::mouseReleaseEvent(QMouseEvent *event)
{
    if (event->button() == Qt::MiddleButton) {
        panFrom_.reset();
        viewport()->setCursor(mouse_.cursorShape(event->pos()));
    }
    mouse_.release(*event);
    edgeScroll_.stop();
}

void PianoRoll::dragBeyondEdge()
{
    if (!mouse_.drag().isRunning() || viewport()->rect().contains(mousePosition_)) {
        edgeScroll_.stop();
        return;
    }
    scroller_.chase(mousePosition_);
    mouse_.move(mousePosition_, mouseModifiers_);
}

void PianoRoll::contextMenuEvent(QContextMenuEvent *event)
{
    mouse_.cancel();
    if (event->reason() == QContextMenuEvent::Mouse)
        mouse_.selectForMenu(event->pos());
    auto *menu = new QMenu(this);
    menu->setAttribute(Qt::WA_DeleteOnClose);
    actions_->fillEditMenu(*menu);
    menu->popup(event->globalPos());
}

void PianoRoll::focusOutEvent(QFocusEvent *event)
{
    QAbstractScrollArea::focusOutEvent(event);
    mouse_.cancel();
}

QString PianoRoll::statusAt(const QPoint &position) const
{
    const auto tick = state_.geometry.tick(position.x());
    QStringList parts{state_.positionText(state_.snap.floor(tick, state_.measures)), tr("tick %1").arg(tick),
                      state_.pitchText(state_.geometry.pitch(position.y()))};
    if (mouse_.drag().kind == RollDrag::Kind::Draw)
        parts.append(tr("length %1").arg(NoteText::length(mouse_.drag().drawn.length)));
    else if (const auto note = mouse_.noteAt(position); note >= 0)
        parts.append(tr("length %1").arg(NoteText::length(state_.notes[note].length)));
    return parts.join(QStringLiteral(" · "));
}
