#include "ui/song/DragHandle.h"

#include <QApplication>
#include <QKeyEvent>
#include <QPainter>

namespace {

constexpr int repeatPauseMs = 40;
constexpr int dotRows = 6;
constexpr double dotPitch = 4;
constexpr double dotSize = 2;

} // namespace

DragHandle::DragHandle(QWidget *parent) : QWidget(parent)
{
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Preferred);
    setCursor(Qt::OpenHandCursor);
}

void DragHandle::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    auto colour = palette().color(QPalette::WindowText);
    colour.setAlpha(underMouse() || isDragging() ? 220 : 110);
    painter.setPen(Qt::NoPen);
    painter.setBrush(colour);
    const QPointF first((width() - dotPitch - dotSize) / 2, (height() - (dotRows - 1) * dotPitch - dotSize) / 2);
    for (int dot = 0; dot < 2 * dotRows; ++dot) {
        const QPointF place(dot % 2 * dotPitch, dot / 2 * dotPitch);
        painter.drawEllipse(QRectF(first + place, QSizeF(dotSize, dotSize)));
    }
}

bool DragHandle::event(QEvent *event)
{
    if (event->type() == QEvent::Enter || event->type() == QEvent::Leave)
        update();
    // A dialog gets the mouse from here on.
    if (event->type() == QEvent::WindowBlocked || event->type() == QEvent::WindowDeactivate)
        giveUp();
    // While it drags, Esc is no shortcut of the window's.
    if (event->type() == QEvent::ShortcutOverride && isDragging() &&
        static_cast<QKeyEvent *>(event)->key() == Qt::Key_Escape) {
        event->accept();
        return true;
    }
    return QWidget::event(event);
}

void DragHandle::mousePressEvent(QMouseEvent *event)
{
    if (event->button() == Qt::LeftButton)
        pressedAt_ = event->pos();
}

void DragHandle::mouseMoveEvent(QMouseEvent *event)
{
    if (!pressedAt_)
        return;
    position_ = mapToGlobal(event->pos());
    if (!isDragging()) {
        if ((event->pos() - *pressedAt_).manhattanLength() < QApplication::startDragDistance())
            return;
        begin();
    }
    emit dragged(position_);
}

void DragHandle::mouseReleaseEvent(QMouseEvent *event)
{
    if (event->button() != Qt::LeftButton)
        return;
    const bool isDrop = isDragging();
    position_ = mapToGlobal(event->pos());
    end();
    if (isDrop)
        emit dropped(position_);
}

void DragHandle::keyPressEvent(QKeyEvent *event)
{
    if (event->key() == Qt::Key_Escape && isDragging())
        giveUp();
    else
        QWidget::keyPressEvent(event);
}

void DragHandle::hideEvent(QHideEvent *)
{
    giveUp();
}

void DragHandle::timerEvent(QTimerEvent *)
{
    emit dragged(position_);
}

void DragHandle::begin()
{
    repeating_.start(repeatPauseMs, this);
    setCursor(Qt::ClosedHandCursor);
    grabKeyboard();
}

void DragHandle::end()
{
    pressedAt_.reset();
    if (!isDragging())
        return;
    repeating_.stop();
    releaseKeyboard();
    setCursor(Qt::OpenHandCursor);
    update();
}

void DragHandle::giveUp()
{
    if (!isDragging())
        return;
    end();
    emit dragCancelled();
}
