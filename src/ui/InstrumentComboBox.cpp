#include "ui/InstrumentComboBox.h"

#include "assets/InstrumentSetModel.h"

#include <QStyleOptionComboBox>
#include <QStylePainter>
#include <QWheelEvent>

#include <utility>

InstrumentComboBox::InstrumentComboBox(InstrumentSetModel &instruments, QWidget *parent) : QComboBox(parent)
{
    setSizeAdjustPolicy(AdjustToMinimumContentsLengthWithIcon);
    setMinimumContentsLength(14);
    setFocusPolicy(Qt::StrongFocus);
    setModel(&instruments);
}

void InstrumentComboBox::setMissing(const QString &name)
{
    if (std::exchange(missing_, name) != name)
        update();
}

void InstrumentComboBox::paintEvent(QPaintEvent *)
{
    QStyleOptionComboBox option;
    initStyleOption(&option);
    // The box by itself draws icons and pixmaps; the catalogue holds images.
    option.currentIcon = QIcon(QPixmap::fromImage(currentData(Qt::DecorationRole).value<QImage>()));
    option.currentText = shownText();
    QStylePainter painter(this);
    painter.setPen(palette().color(QPalette::Text));
    painter.drawComplexControl(QStyle::CC_ComboBox, option);
    painter.drawControl(QStyle::CE_ComboBoxLabel, option);
    if (!hasFocus())
        return;
    QStyleOptionFocusRect ring;
    ring.initFrom(this);
    painter.drawPrimitive(QStyle::PE_FrameFocusRect, ring);
}

void InstrumentComboBox::wheelEvent(QWheelEvent *event)
{
    if (hasFocus())
        QComboBox::wheelEvent(event);
    else
        event->ignore();
}
