#include "app/Application.h"

#include "base/ErrorText.h"

#include <utility>

bool Application::notify(QObject *receiver, QEvent *event)
{
    try {
        return QApplication::notify(receiver, event);
    } catch (...) {
        const auto error = currentErrorText();
        qCritical("%s", qUtf8Printable(error));
        QMetaObject::invokeMethod(
            this, [this, error] { tellFailure(error); }, Qt::QueuedConnection);
        return true;
    }
}

// What paints fails again while the message is open.
void Application::tellFailure(const QString &error)
{
    if (std::exchange(isTelling_, true))
        return;
    emit failed(error);
    isTelling_ = false;
}
