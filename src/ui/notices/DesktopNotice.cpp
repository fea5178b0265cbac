#include "ui/notices/DesktopNotice.h"

#include <QApplication>
#include <QWidget>

void comeForward(QWidget &window)
{
    window.setWindowState(window.windowState() & ~Qt::WindowMinimized);
    window.show();
    window.raise();
    window.activateWindow();
    QApplication::alert(&window);
}
