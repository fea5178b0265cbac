#include "app/Theme.h"

#include <QApplication>
#include <QPalette>
#include <QStyle>
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

} // namespace

void applyTheme(Theme theme)
{
    const auto palette = theme == Theme::Dark ? darkPalette() : QApplication::style()->standardPalette();
    QApplication::setPalette(palette);
    QToolTip::setPalette(palette);
}
