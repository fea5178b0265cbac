#include "ui/roll/RollMouse.h"

#include "core/AbcParser.h"

#include <QApplication>

#include <algorithm>
#include <utility>

namespace {

constexpr qreal edgeWidth = 6;
constexpr qreal leastNoteWidth = 4; // of the part that can be hit

using Kind = RollDrag::Kind;
using Selecting = RollCommands::Selecting;

} // namespace

RollMouse::RollMouse(const RollState &state, RollCommands &commands, QObject *parent)
    : QObject(parent), state_(state), commands_(commands)
{
}

int RollMouse::noteAt(const QPointF &position) const
{
    const auto &geometry = state_.geometry;
    const auto pitch = geometry.pitch(position.y());
    int found = -1;
    state_.notes.forEachIn(geometry.tick(position.x() - leastNoteWidth), geometry.tick(position.x()) + 1,
                           [&](int note) {
                               auto rect = state_.rect(state_.notes[note]);
                               rect.setWidth(std::max(rect.width(), leastNoteWidth));
                               if (state_.notes[note].pitch == pitch && rect.contains(position))
                                   found = note;
                           });
    return found;
}

RollMouse::Grip RollMouse::gripAt(const QPointF &position) const
{
    const auto note = noteAt(position);
    if (note < 0)
        return {};
    const auto rect = state_.rect(state_.notes[note]);
    // A short note keeps most of its width for being moved.
    return {note, rect.right() - position.x() <= std::min(edgeWidth, rect.width() / 3)};
}

Qt::CursorShape RollMouse::cursorShape(const QPointF &position) const
{
    const auto grip = gripAt(position);
    if (grip.note >= 0)
        return grip.isAtEnd ? Qt::SizeHorCursor : Qt::PointingHandCursor;
    return tool_ == Tool::Draw ? Qt::CrossCursor : Qt::ArrowCursor;
}

Ticks RollMouse::snapped(Ticks tick, bool snaps) const
{
    return snaps ? state_.snap.nearest(tick, state_.measures) : tick;
}

void RollMouse::sound(int pitch)
{
    if (soundingPitch_ == pitch)
        return;
    if (soundingPitch_ >= 0)
        emit noteReleased();
    soundingPitch_ = pitch;
    if (pitch >= 0)
        emit notePressed(pitch);
}

bool RollMouse::adds() const
{
    return modifiers_ & (Qt::ShiftModifier | Qt::ControlModifier);
}

void RollMouse::press(const QMouseEvent &event)
{
    if (event.button() != Qt::LeftButton)
        return;
    cancel();
    commands_.bringUpToDate();
    const QPointF position = event.pos();
    isDown_ = true;
    pressedAt_ = position + state_.geometry.scroll();
    modifiers_ = event.modifiers();
    grip_ = gripAt(position);
    if (grip_.note < 0) {
        if (tool_ == Tool::Draw)
            beginDrawing(position, !(modifiers_ & Qt::AltModifier));
        return;
    }
    gripped_ = state_.notes[grip_.note];
    wasSelected_ = state_.has(grip_.note, RollState::Selected);
    if (!wasSelected_)
        commands_.select({gripped_.event}, adds() ? Selecting::Extend : Selecting::Replace);
    commands_.placeCursor(gripped_.start, gripped_.pitch);
    sound(gripped_.pitch);
}

void RollMouse::doublePress(const QMouseEvent &event)
{
    if (event.button() != Qt::LeftButton || tool_ != Tool::Select || noteAt(event.pos()) >= 0) {
        press(event);
        return;
    }
    commands_.bringUpToDate();
    beginDrawing(event.pos(), !(event.modifiers() & Qt::AltModifier));
}

void RollMouse::beginDrawing(const QPointF &position, bool snaps)
{
    const auto &geometry = state_.geometry;
    const auto tick = geometry.tick(position.x());
    isDown_ = true;
    pressedAt_ = position + geometry.scroll();
    grip_ = {};
    drag_ = {};
    drag_.kind = Kind::Draw;
    drag_.drawn.start = snaps ? state_.snap.floor(tick, state_.measures) : tick;
    drag_.drawn.length = commands_.newNoteLength();
    drawNote(position, snaps);
}

void RollMouse::move(const QPointF &position, Qt::KeyboardModifiers modifiers)
{
    if (!isDown_)
        return;
    const auto distance = position + state_.geometry.scroll() - pressedAt_;
    if (!drag_.isRunning() && distance.manhattanLength() >= QApplication::startDragDistance())
        beginDrag();
    const bool snaps = !(modifiers & Qt::AltModifier);
    switch (drag_.kind) {
    case Kind::None:
        return;
    case Kind::Band:
        drag_.band = QRectF(pressedAt_ - state_.geometry.scroll(), position).normalized();
        break;
    case Kind::Move:
    case Kind::Copy:
        dragNotes(position, snaps);
        break;
    case Kind::Resize:
        dragEnd(position, snaps);
        break;
    case Kind::Draw:
        drawNote(position, snaps);
        break;
    }
    emit dragChanged();
}

void RollMouse::beginDrag()
{
    if (grip_.note < 0)
        drag_.kind = Kind::Band;
    else if (grip_.isAtEnd)
        drag_.kind = Kind::Resize;
    else
        drag_.kind = modifiers_ & Qt::ControlModifier ? Kind::Copy : Kind::Move;
}

// The note that was gripped goes to the grid, the others keep their distance from it.
void RollMouse::dragNotes(const QPointF &position, bool snaps)
{
    const auto &geometry = state_.geometry;
    const auto moved = position + geometry.scroll() - pressedAt_;
    const auto pixels = geometry.ticksIn(moved.x());
    const bool isVertical = std::abs(moved.x()) < QApplication::startDragDistance();
    const auto start = std::max(Ticks(0), gripped_.start + pixels);
    drag_.ticks = isVertical ? 0 : commands_.possibleShift(snapped(start, snaps) - gripped_.start);
    const auto pressedPitch = geometry.pitch(pressedAt_.y() - geometry.scroll().y());
    const auto semitones = commands_.possibleTransposition(geometry.pitch(position.y()) - pressedPitch);
    // Beyond the playable range the notes stay where they last fitted.
    if (semitones != 0 || geometry.pitch(position.y()) == pressedPitch)
        drag_.semitones = semitones;
    sound(gripped_.pitch + drag_.semitones);
}

void RollMouse::dragEnd(const QPointF &position, bool snaps)
{
    const auto &geometry = state_.geometry;
    const auto moved = position.x() + geometry.scroll().x() - pressedAt_.x();
    const auto end = std::max(Ticks(0), gripped_.end() + geometry.ticksIn(moved));
    drag_.ticks = commands_.possibleGrowth(snapped(end, snaps) - gripped_.end());
}

// A note keeps the usual length until the mouse asks for another.
void RollMouse::drawNote(const QPointF &position, bool snaps)
{
    const auto &geometry = state_.geometry;
    auto &drawn = drag_.drawn;
    drawn.pitch = std::clamp(geometry.pitch(position.y()), int(lowestPlayablePitch), int(highestPlayablePitch));
    const auto moved = position.x() + geometry.scroll().x() - pressedAt_.x();
    if (std::abs(moved) >= QApplication::startDragDistance()) {
        const auto end = snapped(geometry.tick(position.x()), snaps);
        drawn.length = std::max(end - drawn.start, state_.snap.step());
    }
    sound(drawn.pitch);
    emit dragChanged();
}

void RollMouse::release(const QMouseEvent &event)
{
    if (event.button() != Qt::LeftButton || !isDown_)
        return;
    isDown_ = false;
    sound(-1);
    if (drag_.isRunning())
        finishDrag();
    else
        click();
    emit dragChanged();
}

void RollMouse::finishDrag()
{
    const auto drag = std::exchange(drag_, {});
    switch (drag.kind) {
    case Kind::Band:
        finishBand(drag.band);
        break;
    case Kind::Move:
        commands_.moveNotes(drag.ticks, drag.semitones);
        break;
    case Kind::Copy:
        if (drag.ticks != 0 || drag.semitones != 0)
            commands_.copyNotes(drag.ticks, drag.semitones);
        break;
    case Kind::Resize:
        commands_.resizeNotes(drag.ticks);
        break;
    case Kind::Draw:
        commands_.insertNote({drag.drawn.start, drag.drawn.length, quint32(drag.drawn.pitch)});
        commands_.placeCursor(drag.drawn.end(), drag.drawn.pitch);
        break;
    case Kind::None:
        break;
    }
}

void RollMouse::click()
{
    const auto position = pressedAt_ - state_.geometry.scroll();
    if (grip_.note < 0) {
        if (!adds())
            commands_.selectNone();
        commands_.setCursor(snapped(state_.geometry.tick(position.x()), !(modifiers_ & Qt::AltModifier)),
                            state_.geometry.pitch(position.y()));
    } else if (wasSelected_ && (modifiers_ & Qt::ControlModifier)) {
        commands_.select({gripped_.event}, Selecting::Toggle);
    } else if (wasSelected_ && !adds()) {
        commands_.select({gripped_.event}, Selecting::Replace);
    }
}

void RollMouse::finishBand(const QRectF &band)
{
    const auto &geometry = state_.geometry;
    const auto lowest = geometry.pitch(band.bottom());
    const auto highest = geometry.pitch(band.top());
    QVector<int> touched;
    state_.notes.forEachIn(geometry.tick(band.left()), geometry.tick(band.right()) + 1, [&](int note) {
        const auto &found = state_.notes[note];
        if (found.pitch >= lowest && found.pitch <= highest && geometry.x(found.end()) > band.left())
            touched.append(found.event);
    });
    commands_.select(touched, modifiers_ & Qt::ControlModifier ? Selecting::Toggle
                              : adds()                         ? Selecting::Extend
                                                               : Selecting::Replace);
}

void RollMouse::cancel()
{
    isDown_ = false;
    sound(-1);
    if (drag_.isRunning()) {
        drag_ = {};
        emit dragChanged();
    }
}

void RollMouse::selectForMenu(const QPointF &position)
{
    commands_.bringUpToDate();
    const auto note = noteAt(position);
    if (note >= 0 && !state_.has(note, RollState::Selected))
        commands_.select({state_.notes[note].event}, Selecting::Replace);
}
