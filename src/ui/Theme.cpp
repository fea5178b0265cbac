#include "ui/Theme.h"

#include <QApplication>
#include <QPainter>
#include <QPalette>
#include <QProxyStyle>
#include <QStyleFactory>
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
    const QColor accent(0x4C, 0x8D, 0xFF);

    QPalette palette(text, button, button.lighter(140), base.darker(150), button.lighter(120), text, Qt::white, base,
                     window);
    palette.setColor(QPalette::AlternateBase, window);
    palette.setColor(QPalette::ToolTipBase, base);
    palette.setColor(QPalette::ToolTipText, text);
    palette.setColor(QPalette::PlaceholderText, faded);
    palette.setColor(QPalette::Link, accent.lighter(120));
    palette.setColor(QPalette::LinkVisited, accent);
    palette.setColor(QPalette::Highlight, accent);
    palette.setColor(QPalette::HighlightedText, Qt::white);
    for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText})
        palette.setColor(QPalette::Disabled, role, faded.darker(130));
    palette.setColor(QPalette::Disabled, QPalette::Highlight, button);
    return palette;
}

// Fusion draws outlines darker than the window and a light edge below disabled text: on a dark window the one hides
// check boxes, and the other blurs the text.
class DarkStyle : public QProxyStyle
{
public:
    DarkStyle() : QProxyStyle(QStringLiteral("Fusion")) {}

    int styleHint(StyleHint hint, const QStyleOption *option, const QWidget *widget,
                  QStyleHintReturn *result) const override
    {
        return hint == SH_EtchDisabledText ? 0 : QProxyStyle::styleHint(hint, option, widget, result);
    }

    void drawPrimitive(PrimitiveElement element, const QStyleOption *option, QPainter *painter,
                       const QWidget *widget) const override
    {
        QProxyStyle::drawPrimitive(element, option, painter, widget);
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

void applyTheme(Theme theme)
{
    const bool isDark = theme == Theme::Dark;
    QApplication::setStyle(isDark ? new DarkStyle : QStyleFactory::create(QStringLiteral("Fusion")));
    const auto palette = isDark ? darkPalette() : QApplication::style()->standardPalette();
    QApplication::setPalette(palette);
    QToolTip::setPalette(palette);
}
