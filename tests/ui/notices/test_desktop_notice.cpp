// The service that shows notices, without a bus between.
#include "ui/notices/DesktopNotice_dbus.h"

#include <QDBusServer>
#include <QtTest>

#include <optional>

class Notifications : public QObject
{
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.freedesktop.Notifications")

public:
    QStringList shown;

public slots:
    uint Notify(const QString &, uint, const QString &, const QString &title, const QString &text,
                const QStringList &actions, const QVariantMap &, int)
    {
        shown.append(title + u'|' + text + u'|' + actions.value(0));
        return uint(shown.size());
    }

signals:
    void ActionInvoked(uint notice, const QString &action);
    void NotificationClosed(uint notice, uint reason);
};

class TestDesktopNotice : public QObject
{
    Q_OBJECT

private slots:
    void aClickBringsTheWindowForward()
    {
        Notifications service;
        QDBusServer server(QStringLiteral("unix:tmpdir=/tmp"));
        QVERIFY(server.isConnected());
        std::optional<QDBusConnection> otherEnd;
        connect(&server, &QDBusServer::newConnection, this, [&](QDBusConnection connection) {
            connection.registerObject(QStringLiteral("/org/freedesktop/Notifications"), &service,
                                      QDBusConnection::ExportAllSlots | QDBusConnection::ExportAllSignals);
            otherEnd = connection;
        });
        BusNotices notices(QDBusConnection::connectToPeer(server.address(), QStringLiteral("notices")));
        QTRY_VERIFY(otherEnd);
        QWidget window;
        window.showMinimized();
        notices.show(window, QStringLiteral("A & B"), QStringLiteral("<b> & c"));
        QTRY_COMPARE(service.shown, QStringList(QStringLiteral("A & B|&lt;b&gt; &amp; c|default")));
        QTest::qWait(50);                                         // the answer is on its way
        emit service.ActionInvoked(2, QStringLiteral("default")); // of another program
        emit service.ActionInvoked(1, QStringLiteral("other"));
        QTest::qWait(50);
        QVERIFY(window.isMinimized());
        emit service.ActionInvoked(1, QStringLiteral("default"));
        QTRY_VERIFY(!window.isMinimized());
        QDBusConnection::disconnectFromPeer(QStringLiteral("notices"));
    }
};

QTEST_MAIN(TestDesktopNotice)
#include "test_desktop_notice.moc"
