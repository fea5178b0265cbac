#include "app/services/UpdateChecker.h"

#include <QSignalSpy>
#include <QTcpServer>
#include <QTcpSocket>
#include <QVersionNumber>
#include <QtTest>

namespace {

// A web server that gives every request the same answer.
class Server : public QTcpServer
{
public:
    enum class Afterwards { Close, KeepOpen };

    explicit Server(const QByteArray &answer, Afterwards afterwards = Afterwards::Close)
    {
        listen(QHostAddress::LocalHost);
        connect(this, &QTcpServer::newConnection, this, [=, this] {
            auto *const socket = nextPendingConnection();
            connect(socket, &QTcpSocket::readyRead, socket, [=, this] {
                request += socket->readAll();
                if (!request.endsWith("\r\n\r\n"))
                    return;
                socket->write(answer);
                if (afterwards == Afterwards::Close)
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
    void comparesVersions_data();
    void comparesVersions();
    void refusesUnreadableAnswers_data();
    void refusesUnreadableAnswers();
    void tellsNetworkErrors();
    void stopsHugeAnswers();
    void stopsSlowAnswers();
    void asksOnceForEachCheck();
};

void TestUpdateChecker::comparesVersions_data()
{
    QTest::addColumn<QByteArray>("version");
    QTest::addColumn<bool>("isNewer");
    const auto row = [](const QByteArray &version, bool isNewer) { QTest::newRow(version) << version << isNewer; };
    const auto running = QVersionNumber::fromString(QStringLiteral(COMPOSER_VERSION));
    const auto later = [&running](int major, int minor, int micro, int build) {
        const auto text = QStringLiteral("[%1, %2, %3, %4]").arg(running.majorVersion() + major);
        return text.arg(running.minorVersion() + minor).arg(running.microVersion() + micro).arg(build).toLatin1();
    };
    row(later(0, 0, 0, 0), false);
    row(later(0, 0, 0, 1), true);
    row(later(0, 0, 0, -1), true);
    row("[0, 8, 6, 99]", false);
    row("[0, 8, 6, -1]", true);
    row(later(0, 0, 1, 0), true);
    row(later(0, 1, 0, 0), true);
    row(later(1, 0, 0, 0), true);
    row("[0, 7, 255, 0]", false);
    row("[0, 7, 256, 0]", false); // 0x7 | 0x1 in the minor field
    row("[0, 256, 0, 0]", true);
    row("[0, 0, -1, 0]", true);
    row("[\"0\", null, {}, 1e99]", false);
}

void TestUpdateChecker::comparesVersions()
{
    QFETCH(QByteArray, version);
    const Server server(ok(release(version)));
    UpdateChecker checker(server.address());
    QSignalSpy available(&checker, &UpdateChecker::updateAvailable);
    QSignalSpy failed(&checker, &UpdateChecker::updateCheckFailed);
    checker.check();
    QVERIFY(available.wait());
    QTEST(available[0][0].toBool(), "isNewer");
    QCOMPARE(available[0][1].toString(), QStringLiteral("9.9"));
    QCOMPARE(available[0][2].toString(), QStringLiteral("https://example.org/get"));
    QVERIFY(failed.isEmpty());
}

void TestUpdateChecker::refusesUnreadableAnswers_data()
{
    QTest::addColumn<QByteArray>("body");
    QTest::newRow("three elements") << release("[0, 8, 7]");
    QTest::newRow("five elements") << release("[0, 8, 7, 0, 0]");
    QTest::newRow("no list") << release("\"0.8.7\"");
    QTest::newRow("array") << QByteArray("[0, 8, 7, 0]");
    QTest::newRow("null") << QByteArray("null");
    QTest::newRow("empty") << QByteArray();
    QTest::newRow("web page") << QByteArray("<html>Welcome!</html>");
    QTest::newRow("cut off") << release("[0, 8, 7, 0]").left(30);
}

void TestUpdateChecker::refusesUnreadableAnswers()
{
    QFETCH(QByteArray, body);
    const Server server(ok(body));
    UpdateChecker checker(server.address());
    QSignalSpy failed(&checker, &UpdateChecker::updateCheckFailed);
    checker.check();
    QVERIFY(failed.wait());
    QCOMPARE(failed[0][0].toString(), QStringLiteral("Could not read update information"));
}

void TestUpdateChecker::tellsNetworkErrors()
{
    Server server("HTTP/1.1 500 Broken\r\nContent-Length: 0\r\n\r\n");
    UpdateChecker broken(server.address());
    QSignalSpy failed(&broken, &UpdateChecker::updateCheckFailed);
    broken.check();
    QVERIFY(failed.wait());
    QVERIFY(failed[0][0].toString().contains(QStringLiteral("Broken")));

    const auto address = server.address();
    server.close();
    UpdateChecker refused(address);
    QSignalSpy refusals(&refused, &UpdateChecker::updateCheckFailed);
    refused.check();
    QVERIFY(refusals.wait());
    QVERIFY(refusals[0][0].toString().contains(QStringLiteral("refused"), Qt::CaseInsensitive));
}

void TestUpdateChecker::stopsHugeAnswers()
{
    const Server server(ok(release("[9, 0, 0, 0]") + QByteArray(1 << 20, ' ')));
    UpdateChecker checker(server.address());
    QSignalSpy failed(&checker, &UpdateChecker::updateCheckFailed);
    checker.check();
    QVERIFY(failed.wait());
}

void TestUpdateChecker::stopsSlowAnswers()
{
    const Server server("HTTP/1.1 200 OK\r\nContent-Length: 100\r\n\r\n{", Server::Afterwards::KeepOpen);
    UpdateChecker checker(server.address(), 200);
    QSignalSpy failed(&checker, &UpdateChecker::updateCheckFailed);
    checker.check();
    QVERIFY(failed.wait(3000));
}

void TestUpdateChecker::asksOnceForEachCheck()
{
    const Server server(ok(release("[0, 8, 7, 0]")));
    UpdateChecker checker(server.address());
    QSignalSpy available(&checker, &UpdateChecker::updateAvailable);
    checker.check();
    checker.check();
    QTRY_COMPARE(available.count(), 2);
    QVERIFY(server.request.startsWith("GET /api/lastversion.php HTTP/1.1\r\n"));
    QCOMPARE(UpdateChecker::releaseAddress().path(), QStringLiteral("/api/lastversion.php"));
}

QTEST_GUILESS_MAIN(TestUpdateChecker)
#include "test_update_checker.moc"
