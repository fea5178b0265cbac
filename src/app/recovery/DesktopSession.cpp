#include "app/recovery/DesktopSession.h"

#include <QSessionManager>

DesktopSession::DesktopSession(QGuiApplication &application, const Window &window) : window_(window)
{
#if QT_VERSION < QT_VERSION_CHECK(6, 0, 0)
    QGuiApplication::setFallbackSessionManagementEnabled(false); // which closes the windows, and they would ask
#endif
    connect(&application, &QGuiApplication::commitDataRequest, this, &DesktopSession::commit);
    connect(&application, &QGuiApplication::saveStateRequest, this, &DesktopSession::saveState);
}

// Desktops ask to commit, to save the state, or for both, before they end programs; each is enough for a window that
// comes back. Asks only where the disk does not take the song.
void DesktopSession::commit(QSessionManager &manager)
{
    saveState(manager);
    if (isKept_ || !manager.allowsInteraction())
        return;
    isKept_ = window_.mayLeave();
    if (!isKept_)
        manager.cancel();
    manager.release();
}

void DesktopSession::saveState(QSessionManager &manager)
{
    isKept_ = window_.keep();
    const auto id = manager.sessionId() + u'_' + manager.sessionKey(); // as Qt takes it apart at the next start
    manager.setRestartCommand(QStringList{QCoreApplication::applicationFilePath(), QStringLiteral("-session"), id} +
                              window_.restart());
}
