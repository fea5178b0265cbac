#include "ui/ScreenFit.h"

#include <QScreen>
#include <QWidget>

void fitToScreen(QWidget &window)
{
    const auto *const screen = window.screen();
    if (!screen || window.isMaximized() || window.isFullScreen())
        return;
    constexpr QSize frame(20, 60); // with the title bar; thinner on most desktops
    window.resize(window.size().boundedTo(screen->availableSize() - frame));
}
