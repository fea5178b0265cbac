#include "ui/ScreenFit.h"

#include <QScreen>
#include <QStyle>
#include <QWidget>

void fitToScreen(QWidget &window)
{
    const auto *const screen = window.screen();
    if (!screen || window.isMaximized() || window.isFullScreen())
        return;
    constexpr int border = 8; // of both sides
    const auto *const style = window.style();
    const int title = style->pixelMetric(QStyle::PM_TitleBarHeight) + border;
    window.resize(window.size().boundedTo(screen->availableSize() - QSize(border, title)));
}
