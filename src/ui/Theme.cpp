#include "ui/Theme.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QPainter>
#include <QPalette>
#include <QProxyStyle>
#include <QStyleOption>
#include <QToolTip>

namespace {

QPalette darkPalette()
{
    const QColor window(0x2B, 0x2D, 0x31);
    const QColor base(0x1F, 0x21, 0x24);
    const QColor button(0x3A, 0x3D, 0x42);
    const QColor text(0xE4, 0xE6, 0xEA);
    const QColor faded(0x8A, 0x8F, 0x98);
    const QColor accent(0x35, 0x72, 0xE0);

    QPalette palette(text, button, button.lighter(140), base.darker(150), button.lighter(120), text, Qt::white, base,
                     window);
    palette.setColor(QPalette::AlternateBase, window);
    palette.setColor(QPalette::ToolTipBase, base);
    palette.setColor(QPalette::ToolTipText, text);
    palette.setColor(QPalette::PlaceholderText, faded);
    palette.setColor(QPalette::Link, QColor(0x7F, 0xAE, 0xFF));
    palette.setColor(QPalette::LinkVisited, QColor(0xB4, 0x9C, 0xF0));
    palette.setColor(QPalette::Highlight, accent);
    palette.setColor(QPalette::HighlightedText, Qt::white);
    for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText})
        palette.setColor(QPalette::Disabled, role, faded.darker(130));
    palette.setColor(QPalette::Disabled, QPalette::Highlight, button);
    return palette;
}

// The drawing in the menu's own colours, as those of many are near that of a highlighted row.
QIcon onTile(const QIcon &icon, int size, const QColor &colour, qreal scale)
{
    QPixmap tile(QSize(size, size) * scale);
    tile.setDevicePixelRatio(scale);
    tile.fill(Qt::transparent);
    QPainter painter(&tile);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(colour);
    painter.drawRoundedRect(0, 0, size, size, 3, 3);
    icon.paint(&painter, 1, 1, size - 2, size - 2);
    return QIcon(tile);
}

class LightStyle : public QProxyStyle
{
public:
    LightStyle() : QProxyStyle(QStringLiteral("Fusion")) { setObjectName(QStringLiteral("fusion")); }

    // Fusion's ring can hardly be seen; in lists it lies on a highlighted row, which can.
    void drawPrimitive(PrimitiveElement element, const QStyleOption *option, QPainter *painter,
                       const QWidget *widget) const override
    {
        if (element != PE_FrameFocusRect || qobject_cast<const QAbstractItemView *>(widget))
            return QProxyStyle::drawPrimitive(element, option, painter, widget);
        if (!option->state.testFlag(State_KeyboardFocusChange))
            return;
        painter->save();
        painter->setRenderHint(QPainter::Antialiasing);
        painter->setPen(QPen(focusColour(), 2));
        painter->setBrush(Qt::NoBrush);
        painter->drawRoundedRect(QRectF(option->rect).adjusted(1, 1, -1, -1), 2, 2);
        painter->restore();
    }

    void drawControl(ControlElement element, const QStyleOption *option, QPainter *painter,
                     const QWidget *widget) const override
    {
        const auto *const item = qstyleoption_cast<const QStyleOptionMenuItem *>(option);
        const auto highlighted = State_Selected | State_Enabled;
        if (element != CE_MenuItem || !item || item->icon.isNull() || (item->state & highlighted) != highlighted)
            return QProxyStyle::drawControl(element, option, painter, widget);
        auto tiled = *item;
        tiled.icon = onTile(item->icon, pixelMetric(PM_SmallIconSize, option, widget),
                            option->palette.color(QPalette::Window), painter->device()->devicePixelRatioF());
        QProxyStyle::drawControl(element, &tiled, painter, widget);
    }
};

// Fusion draws outlines darker than the window and a light edge below disabled text: on a dark window the one hides
// check boxes, and the other blurs the text.
class DarkStyle : public LightStyle
{
public:
    int styleHint(StyleHint hint, const QStyleOption *option, const QWidget *widget,
                  QStyleHintReturn *result) const override
    {
        return hint == SH_EtchDisabledText ? 0 : LightStyle::styleHint(hint, option, widget, result);
    }

    void drawPrimitive(PrimitiveElement element, const QStyleOption *option, QPainter *painter,
                       const QWidget *widget) const override
    {
        LightStyle::drawPrimitive(element, option, painter, widget);
        const bool showsFocus =
            option->state.testFlag(State_HasFocus) && option->state.testFlag(State_KeyboardFocusChange);
        if (element != PE_IndicatorCheckBox || showsFocus)
            return;
        painter->save();
        painter->setPen(option->palette.color(QPalette::Mid).lighter(130));
        painter->setBrush(Qt::NoBrush);
        painter->drawRect(QRectF(option->rect).adjusted(0.5, 0.5, -0.5, -0.5));
        painter->restore();
    }
};

} // namespace

void startTheme(Theme theme)
{
    if (theme == Theme::Dark)
        applyTheme(theme);
    else
        QApplication::setStyle(new LightStyle);
}

// The palette is first, since the change of the style is what tells the widgets with a style sheet of their own.
void applyTheme(Theme theme)
{
    const bool isDark = theme == Theme::Dark;
    auto *const style = isDark ? new DarkStyle : new LightStyle;
    const auto palette = isDark ? darkPalette() : style->standardPalette();
    QApplication::setPalette(palette);
    QApplication::setStyle(style);
    QToolTip::setPalette(palette);
}

bool isDarkTheme()
{
    return QApplication::palette().color(QPalette::Window).lightness() < 128;
}

QColor focusColour()
{
    return isDarkTheme() ? QColor(0xD6, 0xE6, 0xFF) : QColor(0x0B, 0x4F, 0x8A);
}
