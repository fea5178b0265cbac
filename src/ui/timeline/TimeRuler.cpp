#include "ui/timeline/TimeRuler.h"

#include "ui/SharpPainter.h"
#include "ui/timeline/MarkTexts.h"
#include "ui/timeline/SpokenPosition.h"

#include <QApplication>
#include <QMouseEvent>
#include <QPainterPath>

#include <cmath>
#include <utility>

namespace {

constexpr double leastBeatDistance = 6;
constexpr double leastSnapDistance = 8;
constexpr double beatTickLength = 5;
constexpr double measureTickLength = 9;
constexpr int textMargin = 4;
constexpr int pointerWidth = 6; // from its middle
constexpr double edgeWidth = 5; // of a loop, for the mouse

QColor mixed(const QColor &a, const QColor &b)
{
    return {(a.red() + b.red()) / 2, (a.green() + b.green()) / 2, (a.blue() + b.blue()) / 2};
}

} // namespace

TimeRuler::TimeRuler(QWidget *parent) : QWidget(parent)
{
    setAttribute(Qt::WA_OpaquePaintEvent);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    setCursor(Qt::PointingHandCursor);
    setToolTip(tr("Click or drag to set the position, drag in the upper half to set a loop (with Alt: between "
                  "the beats)"));
    setAccessibleName(tr("Measures"));
}

void TimeRuler::setMeasures(const Measures &measures)
{
    measures_ = measures;
    update();
}

void TimeRuler::setSpan(const TimeSpan &span)
{
    if (span == span_)
        return;
    span_ = span;
    update();
}

void TimeRuler::setPosition(Ticks position)
{
    updatePointer();
    position_ = position;
    updatePointer();
}

void TimeRuler::setLoop(const std::optional<TimeSpan> &loop)
{
    loop_ = loop;
    update();
}

QString TimeRuler::spokenValue() const
{
    const auto position = SpokenPosition::text(measures_, position_);
    return loop_ ? tr("%1; loop: %2 to %3", "all are positions")
                       .arg(position, SpokenPosition::text(measures_, loop_->begin),
                            SpokenPosition::text(measures_, loop_->end()))
                 : position;
}

std::optional<SpokenWidget::Range> TimeRuler::spokenRange() const
{
    return SpokenPosition::range(measures_, position_, span_.end());
}

void TimeRuler::setSpokenValue(double measure)
{
    emit seek(SpokenPosition::tick(measures_, measure));
}

int TimeRuler::lineHeight() const
{
    return fontMetrics().height() + 1;
}

QSize TimeRuler::sizeHint() const
{
    return {400, 2 * lineHeight() + 4};
}

double TimeRuler::x(Ticks tick) const
{
    constexpr double farOutside = 1 << 20;
    const auto ratio = devicePixelRatioF();
    const auto place = std::clamp(span_.x(tick, width()), -farOutside, farOutside);
    return std::round(place * ratio) / ratio;
}

Ticks TimeRuler::nearestTick(int x) const
{
    const auto tick = tickAt(x);
    const auto measure = measures_.at(tick);
    const bool showsBeats = measure.beat >= ticksIn(leastSnapDistance);
    const auto step = showsBeats ? measure.beat : measure.end - measure.start;
    const auto before = measure.start + (tick - measure.start) / step * step;
    const auto after = std::min(before + step, measure.end);
    return std::clamp(tick - before <= after - tick ? before : after, span_.begin, span_.end());
}

void TimeRuler::updatePointer()
{
    update(int(x(position_)) - pointerWidth - 2, 0, 2 * pointerWidth + 4, height());
}

void TimeRuler::paintEvent(QPaintEvent *event)
{
    SharpPainter painter(this);
    const auto clip = event->rect();
    painter.fillRect(clip, palette().color(QPalette::Window));
    paintLoop(painter);
    const auto widestNumber = fontMetrics().horizontalAdvance(QStringLiteral("0000")) + 2 * textMargin;
    const auto from = std::max(Ticks(0), tickAt(clip.left()) - ticksIn(widestNumber));
    const auto to = tickAt(clip.right() + 2) + 1;
    if (span_.length > 0) {
        measures_.forEachIn(from, to, ticksIn(leastBeatDistance),
                            [&](const Measure &measure) { paintBeats(painter, measure, to); });
        measures_.forEachIn(from, to, ticksIn(widestNumber),
                            [&](const Measure &measure) { paintNumber(painter, measure); });
    }
    painter.setPen(palette().color(QPalette::WindowText));
    const auto marks =
        placeMarks(measures_.marks(), span_.begin, clip.right(), fontMetrics(), [this](Ticks tick) { return x(tick); });
    for (const auto &mark : marks)
        painter.drawText(QPointF(mark.x, fontMetrics().ascent() + 2), mark.text);
    paintPointer(painter);
}

void TimeRuler::paintTick(QPainter &painter, Ticks tick, double length) const
{
    const auto colour = mixed(palette().color(QPalette::Window), palette().color(QPalette::WindowText));
    painter.fillRect(QRectF(x(tick), height() - length, hairline(), length), colour);
}

void TimeRuler::paintBeats(QPainter &painter, const Measure &measure, Ticks to) const
{
    paintTick(painter, measure.start, measureTickLength);
    if (measure.beat < ticksIn(leastBeatDistance))
        return;
    const auto skipped = std::max(Ticks(1), (span_.begin - measure.start) / measure.beat);
    for (auto beat = measure.start + skipped * measure.beat; beat < std::min(to, measure.end); beat += measure.beat)
        paintTick(painter, beat, beatTickLength);
}

void TimeRuler::paintNumber(QPainter &painter, const Measure &measure) const
{
    const auto top = lineHeight() + 2;
    paintTick(painter, measure.start, height() - top);
    painter.setPen(palette().color(QPalette::WindowText));
    painter.drawText(QPointF(x(measure.start) + textMargin, top + fontMetrics().ascent()),
                     QString::number(measure.number));
}

void TimeRuler::paintPointer(QPainter &painter) const
{
    const auto middle = x(position_) + 0.5;
    QPainterPath pointer(QPointF(middle - pointerWidth + 1, height() - 9));
    pointer.lineTo(middle + pointerWidth - 1, height() - 9);
    pointer.lineTo(middle, height() - 1);
    pointer.closeSubpath();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.fillPath(pointer, palette().color(QPalette::Highlight));
}

void TimeRuler::paintLoop(QPainter &painter) const
{
    if (!shownLoop() || span_.length <= 0)
        return;
    const auto left = x(shownLoop()->begin);
    const auto right = x(shownLoop()->end());
    auto colour = palette().color(QPalette::Highlight);
    for (const auto edge : {left, right - hairline()})
        painter.fillRect(QRectF(edge, 0, hairline(), height()), colour);
    colour.setAlpha(90);
    painter.fillRect(QRectF(left, 0, right - left, lineHeight() + 1), colour);
}

Ticks TimeRuler::picked(const QMouseEvent &event) const
{
    const auto x = event.pos().x();
    return event.modifiers() & Qt::AltModifier ? tickAt(x) : nearestTick(x);
}

Ticks TimeRuler::loopAnchor(const QMouseEvent &event) const
{
    const auto isAt = [&](Ticks tick) { return std::abs(x(tick) - event.pos().x()) <= edgeWidth; };
    if (loop_ && isAt(loop_->end()))
        return loop_->begin;
    return loop_ && isAt(loop_->begin) ? loop_->end() : picked(event);
}

void TimeRuler::mousePressEvent(QMouseEvent *event)
{
    if (event->button() != Qt::LeftButton)
        return;
    pressedAt_ = event->pos();
    if (event->pos().y() <= lineHeight())
        anchor_ = loopAnchor(*event);
    else
        emit seek(picked(*event));
}

void TimeRuler::mouseMoveEvent(QMouseEvent *event)
{
    if (!(event->buttons() & Qt::LeftButton))
        return;
    if (!anchor_) {
        emit seek(picked(*event));
        return;
    }
    const bool isDragged = (event->pos() - pressedAt_).manhattanLength() >= QApplication::startDragDistance();
    if (!isDragged && !draggedLoop_)
        return;
    const auto here = picked(*event);
    draggedLoop_ = TimeSpan{std::min(*anchor_, here), std::abs(*anchor_ - here)};
    update();
}

// Without a drag it was a click.
void TimeRuler::mouseReleaseEvent(QMouseEvent *event)
{
    if (event->button() != Qt::LeftButton || !anchor_)
        return;
    anchor_.reset();
    const auto dragged = std::exchange(draggedLoop_, {});
    if (!dragged)
        emit seek(picked(*event));
    else if (dragged->length > 0)
        emit loopChosen(*dragged);
    update();
}
