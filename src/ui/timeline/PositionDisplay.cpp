#include "ui/timeline/PositionDisplay.h"

#include <QLocale>
#include <QPainter>

namespace {

QString timeText(qint64 milliseconds)
{
    return QStringLiteral("%1:%2%3%4")
        .arg(milliseconds / 60'000)
        .arg(milliseconds / 1000 % 60, 2, 10, QLatin1Char('0'))
        .arg(QLocale().decimalPoint())
        .arg(milliseconds % 1000, 3, 10, QLatin1Char('0'));
}

// Digits of one width in every font, so that what counts stands still.
void drawDigits(QPainter &painter, double x, double y, const QString &text)
{
    const QFontMetricsF metrics(painter.font());
    const auto digit = metrics.horizontalAdvance(u'0');
    for (const auto &character : text) {
        const auto own = metrics.horizontalAdvance(character);
        const auto room = character.isDigit() ? digit : own;
        painter.drawText(QPointF(x + (room - own) / 2, y), QString(character));
        x += room;
    }
}

} // namespace

PositionDisplay::PositionDisplay(QWidget *parent) : QWidget(parent)
{
    setAccessibleName(tr("Position"));
    setToolTip(tr("The position: minutes, seconds and thousandths; measure and beat"));
    setPosition(0, {}, 0);
}

void PositionDisplay::setPosition(Ticks position, const Measure &measure, qint64 milliseconds)
{
    const auto beat = measure.beat > 0 ? (position - measure.start) / measure.beat + 1 : 1;
    auto time = timeText(milliseconds);
    auto place = QStringLiteral("%1.%2").arg(measure.number).arg(beat);
    if (time == time_ && place == place_)
        return;
    time_ = std::move(time);
    place_ = std::move(place);
    update();
}

QFont PositionDisplay::timeFont() const
{
    auto bold = font();
    bold.setBold(true);
    return bold;
}

QSize PositionDisplay::sizeHint() const
{
    return {QFontMetrics(timeFont()).horizontalAdvance(QStringLiteral("000:00.000")), 2 * fontMetrics().height() + 4};
}

void PositionDisplay::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    painter.setPen(palette().color(QPalette::WindowText));
    const auto lineHeight = fontMetrics().height() + 1;
    painter.setFont(timeFont());
    drawDigits(painter, 0, fontMetrics().ascent() + 1, time_);
    painter.setFont(font());
    drawDigits(painter, 0, fontMetrics().ascent() + 1 + lineHeight, place_);
}
