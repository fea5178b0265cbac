// Windows and macOS show the notices of icons in their trays, which this has for as long as its notice is shown.
#include "ui/notices/DesktopNotice.h"

#include <QApplication>
#include <QPointer>
#include <QSystemTrayIcon>
#include <QTimer>
#include <QWidget>

void showDesktopNotice(QWidget &window, const QString &title, const QString &text)
{
    constexpr int shownMs = 10000;
    if (!QSystemTrayIcon::supportsMessages()) {
        QApplication::alert(&window);
        return;
    }
    auto *const icon = new QSystemTrayIcon(window.windowIcon(), &window);
    QObject::connect(icon, &QSystemTrayIcon::messageClicked, &window, [&window] { comeForward(window); });
    QTimer::singleShot(shownMs, icon, &QObject::deleteLater);
    icon->show();
    icon->showMessage(title, text, window.windowIcon(), shownMs);
}
