#pragma once

#include <QDBusConnection>
#include <QHash>
#include <QPointer>
#include <QWidget>

class QDBusPendingCallWatcher;

// Notices as the Desktop Notifications Specification 1.2 has them: a service on the bus of the user shows them and
// tells when one was clicked. On the interface thread.
class BusNotices : public QObject
{
    Q_OBJECT

public:
    // bus: of the user, or one whose other end is such a service itself.
    explicit BusNotices(const QDBusConnection &bus, QObject *parent = nullptr);

    void show(QWidget &window, const QString &title, const QString &text);

private slots:
    void activate(uint notice, const QString &action);
    void forget(uint notice);

private:
    void take(QDBusPendingCallWatcher &call, QWidget *window);

    QDBusConnection bus_;
    QHash<uint, QPointer<QWidget>> windows_; // of the notices that are shown
};
