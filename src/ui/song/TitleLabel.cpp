#include "ui/song/TitleLabel.h"

#include <QKeyEvent>
#include <QPainter>
#include <QStyle>
#include <QStyleOptionFocusRect>

#include <utility>

namespace {

constexpr int roomForTheRing = 3; // that shows the focus

}

TitleLabel::TitleLabel(QWidget *parent) : QLabel(parent)
{
    setTextFormat(Qt::PlainText);
    setFocusPolicy(Qt::TabFocus);
}

QSize TitleLabel::minimumSizeHint() const
{
    return {fontMetrics().averageCharWidth() * 4, QLabel::minimumSizeHint().height()};
}

void TitleLabel::setMarked(bool isMarked)
{
    if (std::exchange(isMarked_, isMarked) != isMarked)
        update();
}

void TitleLabel::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    const auto mark = isMarked_ ? QStringLiteral("*") : QString();
    const auto inside = rect().adjusted(roomForTheRing, 0, -roomForTheRing, 0);
    const auto room = inside.width() - fontMetrics().horizontalAdvance(mark);
    const auto shown = fontMetrics().elidedText(text(), Qt::ElideMiddle, room) + mark;
    style()->drawItemText(&painter, inside, Qt::AlignLeft | Qt::AlignVCenter, palette(), isEnabled(), shown,
                          foregroundRole());
    if (!hasFocus())
        return;
    QStyleOptionFocusRect frame;
    frame.initFrom(this);
    style()->drawPrimitive(QStyle::PE_FrameFocusRect, &frame, &painter, this);
}

void TitleLabel::mouseDoubleClickEvent(QMouseEvent *)
{
    emit doubleClicked();
}

void TitleLabel::keyPressEvent(QKeyEvent *event)
{
    if (event->key() == Qt::Key_F2 || event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter)
        emit doubleClicked();
    else
        QLabel::keyPressEvent(event);
}
