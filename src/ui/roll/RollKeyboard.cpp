#include "ui/roll/RollKeyboard.h"

#include "core/AbcParser.h"
#include "core/KeyTable.h"
#include "edit/NoteText.h"
#include "ui/SharpPainter.h"
#include "ui/roll/RollState.h"

#include <QHelpEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QToolTip>

namespace {

constexpr int keyboardWidth = 64;
constexpr qreal blackKeyPart = 0.6;
constexpr int leastRowForAllNames = 16;

} // namespace

RollKeyboard::RollKeyboard(const RollState &state, QWidget *parent) : QWidget(parent), state_(state)
{
    setMouseTracking(true);
    setAttribute(Qt::WA_OpaquePaintEvent);
    setAccessibleName(tr("Keyboard"));
    setAccessibleDescription(tr("Press a key to hear its note."));
}

QSize RollKeyboard::sizeHint() const
{
    return {keyboardWidth, 200};
}

QString RollKeyboard::describe(int pitch) const
{
    const auto name = state_.pitchText(pitch);
    if (!isPlayable(pitch))
        return tr("%1: outside the playable range").arg(name);
    return state_.silent.test(size_t(pitch)) ? tr("%1: the instrument has no sample near").arg(name) : name;
}

bool RollKeyboard::event(QEvent *event)
{
    if (event->type() != QEvent::ToolTip)
        return QWidget::event(event);
    const auto *help = static_cast<QHelpEvent *>(event);
    QToolTip::showText(help->globalPos(), describe(state_.geometry.pitch(help->pos().y())), this);
    return true;
}

QColor RollKeyboard::keyColour(int pitch) const
{
    const auto &colours = state_.colours;
    if (state_.soundingKeys.test(size_t(pitch)) || pressed_ == pitch)
        return colours.playing;
    const auto key = RollState::isBlackKey(pitch) ? colours.blackKey : colours.whiteKey;
    if (state_.keyUnderMouse == pitch)
        return RollState::isBlackKey(pitch) ? key.lighter(170) : key.darker(114);
    return key;
}

void RollKeyboard::paintEvent(QPaintEvent *event)
{
    SharpPainter painter(this);
    const auto &geometry = state_.geometry;
    painter.fillRect(event->rect(), state_.colours.ruler);
    painter.setBrushOrigin(0, -geometry.scroll().y()); // the hatching scrolls with the keys
    // One more on both sides, for keys that reach into their neighbours' rows.
    const auto highest = std::min(geometry.pitch(event->rect().top()) + 1, RollGeometry::highestPitch);
    const auto lowest = std::max(geometry.pitch(event->rect().bottom()) - 1, RollGeometry::lowestPitch);
    for (auto pitch = highest; pitch >= lowest; --pitch) {
        if (!RollState::isBlackKey(pitch))
            paintWhiteKey(painter, pitch);
    }
    for (auto pitch = highest; pitch >= lowest; --pitch) {
        if (RollState::isBlackKey(pitch))
            paintBlackKey(painter, pitch);
        const QRectF row(0, geometry.top(pitch), width(), geometry.rowHeight());
        if (!isPlayable(pitch))
            painter.fillRect(row, state_.colours.unplayable);
        else if (state_.silent.test(size_t(pitch)))
            painter.fillRect(row, QBrush(state_.colours.silent, Qt::BDiagPattern));
        paintLabel(painter, pitch);
    }
    const auto hairline = geometry.hairline();
    painter.fillRect(QRectF(width() - hairline, event->rect().top(), hairline, event->rect().height()),
                     state_.colours.measureLine);
}

// White keys reach half way into the rows of the black keys beside them, as on the instrument.
void RollKeyboard::paintWhiteKey(QPainter &painter, int pitch) const
{
    const auto &geometry = state_.geometry;
    const auto half = geometry.rowHeight() / 2.0;
    const auto top = geometry.sharp(geometry.top(pitch) - (RollState::isBlackKey(pitch + 1) ? half : 0));
    const auto bottom = geometry.sharp(geometry.bottom(pitch) + (RollState::isBlackKey(pitch + 11) ? half : 0));
    painter.fillRect(QRectF(0, top, width(), bottom - top), keyColour(pitch));
    const auto hairline = geometry.hairline();
    painter.fillRect(QRectF(0, bottom - hairline, width(), hairline), state_.colours.keyLine);
}

void RollKeyboard::paintBlackKey(QPainter &painter, int pitch) const
{
    const auto &geometry = state_.geometry;
    const auto top = geometry.top(pitch);
    const auto hairline = geometry.hairline();
    const QRectF key(-4, top, geometry.sharp(width() * blackKeyPart) + 4, geometry.bottom(pitch) - top - hairline);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(keyColour(pitch));
    painter.drawRoundedRect(key, 2, 2);
    painter.setRenderHint(QPainter::Antialiasing, false);
}

void RollKeyboard::paintLabel(QPainter &painter, int pitch) const
{
    const auto &geometry = state_.geometry;
    const bool isOctave = pitch % 12 == 0;
    const bool isPointedAt = state_.keyUnderMouse == pitch;
    if (!isOctave && !isPointedAt && (geometry.rowHeight() < leastRowForAllNames || RollState::isBlackKey(pitch)))
        return;
    auto labelFont = font();
    labelFont.setPixelSize(std::clamp(geometry.rowHeight() - 2, 9, 11));
    labelFont.setBold(isOctave);
    painter.setFont(labelFont);
    const bool isLit = state_.soundingKeys.test(size_t(pitch)) || pressed_ == pitch;
    painter.setPen(isLit ? QColor(Qt::white) : state_.colours.keyText);
    // Low rows let the name reach over their edges.
    const auto reach = std::max(0, 13 - geometry.rowHeight()) / 2;
    const QRectF row(0, geometry.top(pitch) - reach, width() - 5, geometry.rowHeight() + 2 * reach);
    const auto key = RollState::isBlackKey(pitch) ? state_.keyRow : neutralKeyRow;
    painter.drawText(row, Qt::AlignRight | Qt::AlignVCenter, NoteText::pitch(pitch, key));
}

void RollKeyboard::press(int pitch)
{
    if (pressed_ == pitch)
        return;
    release();
    pressed_ = pitch;
    update();
    emit pressed(pitch);
}

void RollKeyboard::release()
{
    if (!pressed_)
        return;
    update();
    pressed_.reset();
    emit released();
}

void RollKeyboard::mousePressEvent(QMouseEvent *event)
{
    if (event->button() == Qt::LeftButton)
        press(state_.geometry.pitch(event->pos().y()));
}

void RollKeyboard::mouseMoveEvent(QMouseEvent *event)
{
    const auto pitch = state_.geometry.pitch(event->pos().y());
    emit hovered(pitch);
    if (pressed_)
        press(pitch);
}

void RollKeyboard::mouseReleaseEvent(QMouseEvent *event)
{
    if (event->button() == Qt::LeftButton)
        release();
}

void RollKeyboard::leaveEvent(QEvent *)
{
    emit hovered(std::nullopt);
}

void RollKeyboard::hideEvent(QHideEvent *)
{
    release();
}
