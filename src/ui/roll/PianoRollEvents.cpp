// Scrolling, zooming and the events of the piano roll.
#include "settings/Settings.h"
#include "ui/roll/PianoRoll.h"
#include "ui/roll/RollKeyboard.h"
#include "ui/roll/RollRuler.h"
#include "ui/roll/RollText.h"

#include <QContextMenuEvent>
#include <QHelpEvent>
#include <QMenu>
#include <QPainter>
#include <QScrollBar>
#include <QToolTip>

#include <cmath>

namespace {

constexpr int wheelNotch = 120;
constexpr qreal pageTurnAt = 0.9; // of the view's width
constexpr qreal pageBeginsAt = 0.1;

} // namespace

// --- scrolling and zooming

void PianoRoll::updateScrollBars()
{
    const auto &geometry = state_.geometry;
    const auto last = std::max(state_.length, state_.cursor);
    horizontalScrollBar()->setRange(0, geometry.contentWidth(state_.measures.at(last).end));
    horizontalScrollBar()->setPageStep(viewport()->width());
    horizontalScrollBar()->setSingleStep(geometry.rowHeight() * 2);
    verticalScrollBar()->setRange(0, std::max(0, geometry.contentHeight() - viewport()->height()));
    verticalScrollBar()->setPageStep(viewport()->height());
    verticalScrollBar()->setSingleStep(geometry.rowHeight());
}

void PianoRoll::scrollContentsBy(int dx, int dy)
{
    auto &geometry = state_.geometry;
    geometry.setScroll({horizontalScrollBar()->value(), verticalScrollBar()->value()});
    // Only whole pixels of the screen can be moved.
    const auto isWhole = [&geometry](int distance) {
        const auto pixels = distance * geometry.devicePixelRatio();
        return pixels == std::round(pixels);
    };
    const bool moves = isWhole(dx) && isWhole(dy) && !state_.drag.isRunning();
    if (moves)
        viewport()->scroll(dx, dy);
    else
        viewport()->update();
    if (dx != 0)
        ruler_->update(); // its marks at the left edge stay
    if (dy != 0 && moves)
        keyboard_->scroll(0, dy);
    else if (dy != 0)
        keyboard_->update();
}

// The point of the picture under the anchor stays there.
void PianoRoll::applyZoom(int hScale, int vScale, const QPoint &anchor)
{
    auto &geometry = state_.geometry;
    const auto before = geometry;
    geometry.setHScale(hScale);
    geometry.setVScale(vScale);
    if (geometry.hScale() == before.hScale() && geometry.vScale() == before.vScale())
        return;
    mouse_.cancel();
    const auto stretched = [](int scroll, int at, qreal factor) { return qRound((scroll + at) * factor) - at; };
    const auto x = stretched(before.scroll().x(), anchor.x(), geometry.pixelsPerTick() / before.pixelsPerTick());
    const auto y = stretched(before.scroll().y(), anchor.y(), qreal(geometry.rowHeight()) / before.rowHeight());
    updateScrollBars();
    horizontalScrollBar()->setValue(x);
    verticalScrollBar()->setValue(y);
    updateAll();
    settings_.setValue(Settings::PianoRollHScale, geometry.hScale());
    settings_.setValue(Settings::PianoRollVScale, geometry.vScale());
}

void PianoRoll::showTick(Ticks tick)
{
    const auto x = int(state_.geometry.x(tick));
    const auto margin = viewport()->width() / 8;
    auto *bar = horizontalScrollBar();
    if (x < 0)
        bar->setValue(bar->value() + x - margin);
    else if (x > viewport()->width() - margin)
        bar->setValue(bar->value() + x - viewport()->width() + margin);
}

void PianoRoll::showPitch(int pitch)
{
    const auto row = state_.geometry.rowHeight();
    const auto top = int(state_.geometry.top(pitch));
    auto *bar = verticalScrollBar();
    if (top < 0)
        bar->setValue(bar->value() + top - row);
    else if (top + row > viewport()->height())
        bar->setValue(bar->value() + top + 2 * row - viewport()->height());
}

void PianoRoll::showNote(const RollNote &note)
{
    showTick(note.start);
    showPitch(note.pitch);
}

void PianoRoll::followPlayback(Ticks tick)
{
    if (!actions_->action(RollActions::Follow)->isChecked() || mouse_.isDown() || panFrom_)
        return;
    const auto x = state_.geometry.x(tick);
    const auto width = viewport()->width();
    auto *bar = horizontalScrollBar();
    if (x < 0 || x > width * pageTurnAt)
        bar->setValue(bar->value() + int(x - width * pageBeginsAt));
}

// A tune that comes into view for the first time stands in the middle, from its first note on.
void PianoRoll::showMiddleOfNotes()
{
    if (isCentred_ || state_.notes.count() == 0 || !isVisible())
        return;
    isCentred_ = true;
    qint64 sum = 0;
    for (int note = 0; note < state_.notes.count(); ++note)
        sum += state_.notes[note].pitch;
    showPitchInMiddle(int(sum / state_.notes.count()));
}

void PianoRoll::showPitchInMiddle(int pitch)
{
    auto *bar = verticalScrollBar();
    bar->setValue(bar->value() + int(state_.geometry.top(pitch)) - viewport()->height() / 2);
}

// --- events

bool PianoRoll::viewportEvent(QEvent *event)
{
    if (event->type() == QEvent::ToolTip) {
        const auto *help = static_cast<QHelpEvent *>(event);
        const auto note = mouse_.noteAt(help->pos());
        if (note >= 0)
            QToolTip::showText(help->globalPos(), describe(state_.notes[note]), viewport());
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
    QPainter painter(viewport());
    for (const auto &rect : event->region()) {
        painter.setClipRect(rect);
        painter_.paint(painter, state_, rect);
    }
}

void PianoRoll::resizeEvent(QResizeEvent *event)
{
    QAbstractScrollArea::resizeEvent(event);
    state_.geometry.setDevicePixelRatio(devicePixelRatioF());
    const QMargins margins(keyboard_->sizeHint().width(), ruler_->sizeHint().height(), 0, 0);
    if (viewportMargins() != margins)
        setViewportMargins(margins);
    const auto view = viewport()->geometry();
    keyboard_->setGeometry(view.left() - margins.left(), view.top(), margins.left(), view.height());
    ruler_->setGeometry(view.left(), view.top() - margins.top(), view.width(), margins.top());
    updateScrollBars();
    // What was in the middle stays there.
    if (event->oldSize().isValid())
        verticalScrollBar()->setValue(verticalScrollBar()->value() +
                                      (event->oldSize().height() - event->size().height()) / 2);
}

void PianoRoll::showEvent(QShowEvent *event)
{
    QAbstractScrollArea::showEvent(event);
    // The row of middle C, until there are notes to show.
    if (!isCentred_)
        showPitchInMiddle(state_.cursorPitch);
    showMiddleOfNotes();
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
    applyZoom(geometry.hScale() + (isVertical ? 0 : steps), geometry.vScale() + (isVertical ? steps : 0),
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
        const auto moved = event->pos() - *panFrom_;
        panFrom_ = event->pos();
        horizontalScrollBar()->setValue(horizontalScrollBar()->value() - moved.x());
        verticalScrollBar()->setValue(verticalScrollBar()->value() - moved.y());
        return;
    }
    mouse_.move(event->pos(), event->modifiers());
    setKeyUnderMouse(state_.geometry.pitch(event->pos().y()));
    emit statusChanged(statusAt(event->pos()));
    if (!mouse_.isDown())
        viewport()->setCursor(mouse_.cursorShape(event->pos()));
    if (state_.drag.isRunning() && !viewport()->rect().contains(event->pos()))
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

// A drag that left the view takes it along, the faster the farther.
void PianoRoll::dragBeyondEdge()
{
    const auto view = viewport()->rect();
    if (!state_.drag.isRunning() || view.contains(mousePosition_)) {
        edgeScroll_.stop();
        return;
    }
    const auto beyond = [](int at, int last) { return at < 0 ? at : std::max(0, at - last); };
    auto *bar = horizontalScrollBar();
    const auto x = bar->value() + beyond(mousePosition_.x(), view.right()) / 2;
    bar->setMaximum(std::max(bar->maximum(), std::min(x, 1 << 30)));
    bar->setValue(x);
    verticalScrollBar()->setValue(verticalScrollBar()->value() + beyond(mousePosition_.y(), view.bottom()) / 4);
    mouse_.move(mousePosition_, mouseModifiers_);
}

void PianoRoll::contextMenuEvent(QContextMenuEvent *event)
{
    mouse_.cancel();
    if (event->reason() == QContextMenuEvent::Mouse)
        mouse_.selectForMenu(event->pos());
    auto *menu = new QMenu(this);
    menu->setAttribute(Qt::WA_DeleteOnClose);
    for (auto *action : actions_->editActions())
        menu->addAction(action);
    menu->popup(event->globalPos());
}

void PianoRoll::focusOutEvent(QFocusEvent *event)
{
    QAbstractScrollArea::focusOutEvent(event);
    mouse_.cancel();
    edgeScroll_.stop();
}

QString PianoRoll::statusAt(const QPoint &position) const
{
    const auto tick = state_.geometry.tick(position.x());
    QStringList parts{RollText::position(state_.snap.floor(tick, state_.measures), state_.measures),
                      tr("tick %1").arg(tick), RollText::pitch(state_.geometry.pitch(position.y()), state_.keyRow)};
    if (state_.drag.kind == RollDrag::Kind::Draw)
        parts.append(tr("length %1").arg(RollText::length(state_.drag.drawn.length)));
    else if (const auto note = mouse_.noteAt(position); note >= 0)
        parts.append(tr("length %1").arg(RollText::length(state_.notes[note].length)));
    return parts.join(QStringLiteral(" · "));
}
