#include "ui/ValueDial.h"

#include "ui/Theme.h"

#include <QMouseEvent>
#include <QPainter>
#include <QToolTip>
#include <QWheelEvent>

#include <algorithm>
#include <cmath>
#include <utility>

namespace {

constexpr double sweep = 135.0;          // degrees from the top to either end
constexpr double pixelsPerRange = 160.0; // of a drag from one end to the other
constexpr int textHeight = 12;

// A drag holds at the detent for this part of the range on either side.
constexpr double detentReach = 0.03;

} // namespace

ValueDial::ValueDial(int minimum, int maximum, int neutral, Detent detent, Text text, QWidget *parent)
    : QDial(parent), neutral_(neutral), detent_(detent), text_(std::move(text))
{
    setRange(minimum, maximum);
    setPageStep(10);
    setValue(neutral);
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    setFocusPolicy(Qt::StrongFocus);
    setCursor(Qt::SizeVerCursor);
}

double ValueDial::angle(int value) const
{
    return sweep * (2.0 * (value - minimum()) / std::max(maximum() - minimum(), 1) - 1.0);
}

void ValueDial::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const double size = std::min(width(), height() - textHeight) - 2.0;
    const QRectF knob((width() - size) / 2, 1.0, size, size);
    const auto group = isEnabled() ? QPalette::Active : QPalette::Disabled;
    const auto ink = palette().color(group, QPalette::WindowText);
    const auto accent = hasFocus() ? palette().color(group, QPalette::Highlight).lighter(120)
                                   : palette().color(group, QPalette::Highlight);

    const auto ring = knob.adjusted(2, 2, -2, -2);
    const auto drawArc = [&](const QColor &colour, double from, double to) {
        painter.setPen(QPen(colour, 3.0, Qt::SolidLine, Qt::FlatCap));
        painter.drawArc(ring, int(std::lround((90.0 - from) * 16)), int(std::lround((from - to) * 16)));
    };
    auto faint = ink;
    faint.setAlpha(60);
    drawArc(faint, -sweep, sweep);
    drawArc(accent, detent_ == Detent::AtNeutral ? angle(neutral_) : -sweep, angle(value()));

    painter.setPen(hasFocus() ? QPen(focusColour(), 2) : QPen(Qt::NoPen));
    painter.setBrush(hasFocus() ? accent.darker(180) : QColor(0x38, 0x3C, 0x42));
    painter.drawEllipse(knob.adjusted(5.5, 5.5, -5.5, -5.5));
    const double radians = angle(value()) * std::acos(-1.0) / 180.0;
    const QPointF direction(std::sin(radians), -std::cos(radians));
    painter.setPen(QPen(Qt::white, 2.0, Qt::SolidLine, Qt::RoundCap));
    painter.drawLine(knob.center() + direction * (size * 0.12), knob.center() + direction * (size * 0.27));

    auto small = font();
    small.setPixelSize(10);
    painter.setFont(small);
    painter.setPen(ink);
    painter.drawText(QRect(0, height() - textHeight, width(), textHeight), Qt::AlignCenter, valueText());
}

void ValueDial::mousePressEvent(QMouseEvent *event)
{
    if (event->button() != Qt::LeftButton) {
        event->ignore();
        return;
    }
    pressedAt_ = event->pos();
    pressedValue_ = value();
    setSliderDown(true);
}

void ValueDial::mouseMoveEvent(QMouseEvent *event)
{
    if (!isSliderDown())
        return;
    const auto way = event->pos() - pressedAt_;
    const int range = maximum() - minimum();
    auto value = pressedValue_ + int(std::lround((way.x() - way.y()) * range / pixelsPerRange));
    if (detent_ == Detent::AtNeutral && std::abs(value - neutral_) <= range * detentReach)
        value = neutral_;
    setSliderPosition(value);
    QToolTip::showText(mapToGlobal(event->pos()), valueText(), this);
}

void ValueDial::mouseReleaseEvent(QMouseEvent *)
{
    setSliderDown(false);
}

void ValueDial::mouseDoubleClickEvent(QMouseEvent *)
{
    setValue(neutral_);
}

void ValueDial::wheelEvent(QWheelEvent *event)
{
    // Without the focus the wheel scrolls the list that the knob stands in.
    if (hasFocus())
        QDial::wheelEvent(event);
    else
        event->ignore();
}

void ValueDial::keyPressEvent(QKeyEvent *event)
{
    if (event->key() == Qt::Key_Backspace)
        setValue(neutral_);
    else
        QDial::keyPressEvent(event);
}

void ValueDial::sliderChange(SliderChange change)
{
    QDial::sliderChange(change);
    setAccessibleDescription(valueText());
}
