#include "ui/notices/DesktopNotice_dbus.h"

#include "ui/notices/DesktopNotice.h"

#include <QApplication>
#include <QDBusConnectionInterface>
#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>

namespace {

const auto service = QStringLiteral("org.freedesktop.Notifications");
const auto path = QStringLiteral("/org/freedesktop/Notifications");
const auto clicked = QStringLiteral("default"); // the action of the notice as a whole

} // namespace

void showDesktopNotice(QWidget &window, const QString &title, const QString &text)
{
    static const QPointer<BusNotices> notices = new BusNotices(QDBusConnection::sessionBus(), qApp);
    if (notices)
        notices->show(window, title, text);
}

BusNotices::BusNotices(const QDBusConnection &bus, QObject *parent) : QObject(parent), bus_(bus)
{
    const auto sender = bus_.interface() ? service : QString(); // without a bus between there are no names
    bus_.connect(sender, path, service, QStringLiteral("ActionInvoked"), this, SLOT(activate(uint, QString)));
    bus_.connect(sender, path, service, QStringLiteral("NotificationClosed"), this, SLOT(forget(uint)));
}

void BusNotices::show(QWidget &window, const QString &title, const QString &text)
{
    constexpr int asTheDesktopLikes = -1;
    auto call = QDBusMessage::createMethodCall(service, path, service, QStringLiteral("Notify"));
    const QVariantMap hints{{QStringLiteral("desktop-entry"), QGuiApplication::desktopFileName()}};
    const QStringList actions{clicked, tr("Show the Window")};
    call.setArguments({QStringLiteral("Kelvarion Composer"), uint(0), QGuiApplication::desktopFileName(), title,
                       text.toHtmlEscaped(), actions, hints,
                       asTheDesktopLikes}); // the text may have tags, the title not
    auto *const watcher = new QDBusPendingCallWatcher(bus_.asyncCall(call), this);
    connect(watcher, &QDBusPendingCallWatcher::finished, this,
            [=, this, window = QPointer<QWidget>(&window)] { take(*watcher, window); });
}

// No service answers where there is none.
void BusNotices::take(QDBusPendingCallWatcher &call, QWidget *window)
{
    call.deleteLater();
    const QDBusPendingReply<uint> reply = call;
    if (!reply.isError())
        windows_.insert(reply.value(), window);
    else if (window)
        QApplication::alert(window);
}

void BusNotices::activate(uint notice, const QString &action)
{
    const auto window = windows_.value(notice);
    if (action == clicked && window)
        comeForward(*window);
}

void BusNotices::forget(uint notice)
{
    windows_.remove(notice);
}
