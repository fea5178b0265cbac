#include "ui/roll/RollRuler.h"

#include "check/findings/FindingKinds.h"
#include "ui/SharpPainter.h"
#include "ui/roll/RollState.h"
#include "ui/timeline/MarkTexts.h"
#include "ui/timeline/SpokenPosition.h"

#include <QHelpEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QPainterPath>
#include <QToolTip>

#include <cmath>

namespace {

constexpr qreal leastBeatDistance = 6;
constexpr qreal beatTickLength = 5;
constexpr qreal measureTickLength = 9;
constexpr int textMargin = 4;
constexpr int pointerWidth = 6; // from its middle
constexpr qreal findingRadius = 3.5;
constexpr int mostSentences = 10; // of a tool tip

} // namespace

RollRuler::RollRuler(const RollState &state, QWidget *parent) : QWidget(parent), state_(state)
{
    setAttribute(Qt::WA_OpaquePaintEvent);
    setToolTip(tr("Click to set the cursor, double-click to play from here"));
    setAccessibleName(tr("Measures"));
}

QString RollRuler::spokenValue() const
{
    return state_.positionText(state_.cursor);
}

std::optional<SpokenWidget::Range> RollRuler::spokenRange() const
{
    return SpokenPosition::range(state_.measures, state_.cursor, state_.length);
}

void RollRuler::setSpokenValue(double measure)
{
    emit cursorPicked(SpokenPosition::tick(state_.measures, measure));
}

int RollRuler::lineHeight() const
{
    return fontMetrics().height() + 1;
}

QSize RollRuler::sizeHint() const
{
    return {200, 2 * lineHeight() + 4};
}

void RollRuler::updateMark(Ticks tick)
{
    update(int(state_.geometry.x(tick)) - pointerWidth - 2, 0, 2 * pointerWidth + 4, height());
}

void RollRuler::paintEvent(QPaintEvent *event)
{
    SharpPainter painter(this);
    const auto clip = event->rect();
    const auto &geometry = state_.geometry;
    painter.fillRect(clip, state_.colours.ruler);

    const auto widestNumber = fontMetrics().horizontalAdvance(QStringLiteral("0000")) + 2 * textMargin;
    const auto from = geometry.tick(clip.left() - widestNumber);
    const auto to = geometry.tick(clip.right() + 2) + 1;
    state_.measures.forEachIn(from, to, geometry.ticksIn(leastBeatDistance),
                              [&](const Measure &measure) { paintBeats(painter, measure, to); });
    state_.measures.forEachIn(from, to, geometry.ticksIn(widestNumber),
                              [&](const Measure &measure) { paintNumber(painter, measure); });
    paintMarks(painter, clip.right());

    const auto hairline = geometry.hairline();
    painter.fillRect(QRectF(clip.left(), height() - hairline, clip.width(), hairline), state_.colours.measureLine);
    paintFindings(painter);
    paintPointer(painter, state_.cursor, state_.colours.cursor);
    if (state_.playing)
        paintPointer(painter, *state_.playing, state_.colours.playing);
}

void RollRuler::paintTick(QPainter &painter, Ticks tick, qreal length) const
{
    const auto hairline = state_.geometry.hairline();
    painter.fillRect(QRectF(state_.geometry.x(tick), height() - length, hairline, length), state_.colours.rulerMark);
}

void RollRuler::paintBeats(QPainter &painter, const Measure &measure, Ticks to) const
{
    const auto &geometry = state_.geometry;
    paintTick(painter, measure.start, measureTickLength);
    if (measure.beat < geometry.ticksIn(leastBeatDistance))
        return;
    const auto skipped = std::max(Ticks(1), (geometry.tick(0) - measure.start) / measure.beat);
    for (auto beat = measure.start + skipped * measure.beat; beat < std::min(to, measure.end); beat += measure.beat)
        paintTick(painter, beat, beatTickLength);
}

void RollRuler::paintNumber(QPainter &painter, const Measure &measure) const
{
    const auto top = lineHeight() + 2;
    paintTick(painter, measure.start, height() - top);
    painter.setPen(state_.colours.rulerText);
    painter.drawText(QPointF(state_.geometry.x(measure.start) + textMargin, top + fontMetrics().ascent()),
                     QString::number(measure.number));
}

void RollRuler::paintMarks(QPainter &painter, int right) const
{
    const auto &geometry = state_.geometry;
    painter.setPen(state_.colours.rulerText);
    const auto marks = placeMarks(state_.measures.marks(), geometry.tick(0), right, fontMetrics(),
                                  [&](Ticks tick) { return geometry.x(tick); });
    for (const auto &mark : marks)
        painter.drawText(QPointF(mark.x, fontMetrics().ascent() + 2), mark.text);
}

void RollRuler::paintPointer(QPainter &painter, Ticks tick, const QColor &colour) const
{
    const auto x = state_.geometry.x(tick) + 0.5;
    if (x < -pointerWidth || x > width() + pointerWidth)
        return;
    QPainterPath pointer(QPointF(x - pointerWidth + 1, height() - 9));
    pointer.lineTo(x + pointerWidth - 1, height() - 9);
    pointer.lineTo(x, height() - 1);
    pointer.closeSubpath();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.fillPath(pointer, colour);
    painter.setRenderHint(QPainter::Antialiasing, false);
}

void RollRuler::paintFindings(QPainter &painter) const
{
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    for (const auto &finding : state_.findings) {
        const auto x = state_.geometry.x(finding.tick) + 0.5;
        if (x < -findingRadius || x > width() + findingRadius)
            continue;
        const bool isError = FindingKinds::severity(finding.kind) == Severity::Error;
        painter.setBrush(isError ? state_.colours.error : state_.colours.warning);
        painter.drawEllipse(QPointF(x, height() - findingRadius - 1.5), findingRadius, findingRadius);
    }
    painter.setRenderHint(QPainter::Antialiasing, false);
}

QString RollRuler::problemsAt(int x) const
{
    QStringList sentences;
    for (const auto &finding : state_.findings) {
        if (std::abs(state_.geometry.x(finding.tick) - x) <= findingRadius + 1 && sentences.size() < mostSentences)
            sentences += sentenceOf(finding);
    }
    sentences.removeDuplicates();
    return sentences.join(u'\n');
}

bool RollRuler::event(QEvent *event)
{
    if (event->type() == QEvent::ToolTip) {
        const auto *const help = static_cast<QHelpEvent *>(event);
        if (const auto problems = problemsAt(help->pos().x()); !problems.isEmpty()) {
            QToolTip::showText(help->globalPos(), problems, this);
            return true;
        }
    }
    return QWidget::event(event);
}

void RollRuler::pick(const QMouseEvent &event)
{
    const auto tick = state_.geometry.tick(event.pos().x());
    emit cursorPicked(event.modifiers() & Qt::AltModifier ? tick : state_.snap.nearest(tick, state_.measures));
}

void RollRuler::mousePressEvent(QMouseEvent *event)
{
    if (event->button() == Qt::LeftButton)
        pick(*event);
}

void RollRuler::mouseMoveEvent(QMouseEvent *event)
{
    if (event->buttons() & Qt::LeftButton)
        pick(*event);
}

void RollRuler::mouseDoubleClickEvent(QMouseEvent *event)
{
    if (event->button() == Qt::LeftButton)
        emit playRequested(state_.snap.nearest(state_.geometry.tick(event->pos().x()), state_.measures));
}
