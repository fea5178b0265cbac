#include "app/services/UpdateChecker.h"
#include "support/Rows.h"

#include <QSignalSpy>
#include <QTcpServer>
#include <QTcpSocket>
#include <QVersionNumber>

namespace {

// A web server that gives every request the same answer.
class Server : public QTcpServer
{
public:
    explicit Server(const QByteArray &answer)
    {
        listen(QHostAddress::LocalHost);
        connect(this, &QTcpServer::newConnection, this, [=, this] {
            auto *const socket = nextPendingConnection();
            connect(socket, &QTcpSocket::readyRead, socket, [=, this] {
                request += socket->readAll();
                if (!request.endsWith("\r\n\r\n"))
                    return;
                socket->write(answer);
                if (!answer.endsWith('{')) // that one is never complete
                    socket->disconnectFromHost();
            });
        });
    }

    QUrl address() const { return QUrl(QStringLiteral("http://127.0.0.1:%1/api/lastversion.php").arg(serverPort())); }

    QByteArray request;
};

QByteArray ok(const QByteArray &body)
{
    return "HTTP/1.1 200 OK\r\nContent-Length: " + QByteArray::number(body.size()) + "\r\n\r\n" + body;
}

QByteArray release(const QByteArray &version)
{
    return "{\"version\": " + version + ", \"versionString\": \"9.9\", \"url\": \"https://example.org/get\"}";
}

} // namespace

class TestUpdateChecker : public QObject
{
    Q_OBJECT

private slots:
    void check_data()
    {
        // outcome: what is told, or a part of the error
        const Rows<QByteArray, QString> row("answer", "outcome");
        const auto version = [&row](const QByteArray &numbers, const char *outcome) {
            row(numbers, ok(release(numbers)), outcome);
        };
        const auto running = QVersionNumber::fromString(QStringLiteral(COMPOSER_VERSION));
        const auto later = [&running](int major, int minor, int micro, int build) {
            const auto text = QStringLiteral("[%1, %2, %3, %4]").arg(running.majorVersion() + major);
            return text.arg(running.minorVersion() + minor).arg(running.microVersion() + micro).arg(build).toLatin1();
        };
        const auto *const same = "same 9.9 https://example.org/get", *const newer = "newer 9.9 https://example.org/get";
        version(later(0, 0, 0, 0), same);
        version(later(0, 0, 0, 1), newer);
        version(later(0, 0, 0, -1), newer);
        version("[0, 8, 6, 99]", same);
        version("[0, 8, 6, -1]", newer);
        version(later(0, 0, 1, 0), newer);
        version(later(0, 1, 0, 0), newer);
        version(later(1, 0, 0, 0), newer);
        version("[0, 7, 255, 0]", same);
        version("[0, 7, 256, 0]", same); // 0x7 | 0x1 in the minor field
        version("[0, 256, 0, 0]", newer);
        version("[0, 0, -1, 0]", newer);
        version("[\"0\", null, {}, 1e99]", same);
        const auto *const unreadable = "Could not read update information";
        version("[0, 8, 7]", unreadable);
        version("[0, 8, 7, 0, 0]", unreadable);
        version("\"0.8.7\"", unreadable);
        row("array", ok("[0, 8, 7, 0]"), unreadable);
        row("empty", ok(""), unreadable);
        row("web page", ok("<html>Welcome!</html>"), unreadable);
        row("cut off", ok(release("[0, 8, 7, 0]").left(30)), unreadable);
        row("huge", ok(release("[9, 0, 0, 0]") + QByteArray(1 << 20, ' ')), "canceled");
        row("error", "HTTP/1.1 500 Broken\r\nContent-Length: 0\r\n\r\n", "Broken");
        row("refused", {}, "refused");
        row("endless", "HTTP/1.1 200 OK\r\nContent-Length: 100\r\n\r\n{", "canceled");
    }
    void check()
    {
        QFETCH(QByteArray, answer);
        Server server(answer);
        UpdateChecker checker(server.address(), answer.endsWith('{') ? 200 : 10'000);
        if (answer.isEmpty())
            server.close();
        QString told;
        connect(&checker, &UpdateChecker::updateAvailable, this,
                [&](bool isNewer, const QString &text, const QString &url) {
                    told += QLatin1String(isNewer ? "newer " : "same ") + text + u' ' + url;
                });
        connect(&checker, &UpdateChecker::updateCheckFailed, this, [&](const QString &why) { told += why; });
        checker.check();
        QTRY_VERIFY_WITH_TIMEOUT(!told.isEmpty(), 20'000);
        QFETCH(QString, outcome);
        QVERIFY2(told.contains(outcome, Qt::CaseInsensitive), qPrintable(told));
    }

    void asksOnceForEachCheck()
    {
        Server server(ok(release("[0, 8, 7, 0]")));
        UpdateChecker checker(server.address());
        QSignalSpy available(&checker, &UpdateChecker::updateAvailable);
        checker.check();
        checker.check();
        QTRY_COMPARE(available.count(), 2);
        QVERIFY(server.request.startsWith("GET /api/lastversion.php HTTP/1.1\r\n"));
        QCOMPARE(UpdateChecker::releaseAddress().path(), QStringLiteral("/api/lastversion.php"));
    }
};

QTEST_GUILESS_MAIN(TestUpdateChecker)
#include "test_update_checker.moc"
