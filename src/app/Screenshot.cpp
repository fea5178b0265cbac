#include "app/Screenshot.h"

#include "app/MainWindow.h"

#include <QCoreApplication>
#include <QTimer>

namespace {

constexpr int pollMs = 100;
constexpr int playedMs = 4000;
constexpr int exitNotWritten = 2;

} // namespace

void saveScreenshot(MainWindow &window, const QString &file)
{
    QTimer::singleShot(pollMs, &window, [&window, file] {
        if (window.isLoading()) {
            saveScreenshot(window, file);
            return;
        }
        window.onPlay();
        QTimer::singleShot(playedMs, &window, [&window, file] {
            const bool isWritten = window.grab().save(file);
            window.onStopAll();
            QCoreApplication::exit(isWritten ? 0 : exitNotWritten);
        });
    });
}
