#include "app/Application.h"

#include "base/ErrorText.h"

#include <QFileOpenEvent>

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

bool Application::event(QEvent *event)
{
    if (event->type() == QEvent::Quit && mayEnd_ && mayEnd_()) {
        exit();
        return true;
    }
    if (event->type() != QEvent::FileOpen)
        return QApplication::event(event);
    wantedFiles_.append(static_cast<QFileOpenEvent *>(event)->file());
    emit filesWanted();
    return true;
}

// What paints fails again while the message is open.
void Application::tellFailure(const QString &error)
{
    if (std::exchange(isTelling_, true))
        return;
    emit failed(error);
    isTelling_ = false;
}
