#include "app/ArrivedFiles.h"
#include "app/WindowFixture.h"
#include "app/services/RunningProgram.h"
#include "song/OpenRequest.h"
#include "support/Rows.h"
#include "support/TestFolder.h"

#include <QLocalSocket>
#include <QtTest>

#include <atomic>
#include <thread>

class TestRunningProgram : public QObject
{
    Q_OBJECT

private slots:
    void understandsRequestsOnly_data()
    {
        const Rows<QByteArray, QString> row("line", "files");
        row("two", OpenRequest::toLine({QStringLiteral("/a b.abc"), QStringLiteral("/ä\n.mid")}), "/a b.abc|/ä\n.mid");
        row("none", "{\"open\":[]}\n", "");
        row("other members", "{\"open\":[\"/a\"],\"later\":1}\n", "/a");
        row("relative", "{\"open\":[\"/a\",\"b.abc\"]}\n", "refused");
        row("no path", "{\"open\":[\"/a\",7]}\n", "refused");
        row("NUL", "{\"open\":[\"/a\\u0000\"]}\n", "refused");
        row("half a character", "{\"open\":[\"/a\\ud800\"]}\n", "refused");
        row("no list", "{\"open\":\"/a\"}\n", "refused");
        row("no JSON", "GET / HTTP/1.1\r\n", "refused");
        row("too long", "{\"open\":[" + QByteArray(OpenRequest::mostBytes, ' ') + "]}\n", "refused");
    }
    void understandsRequestsOnly()
    {
        QFETCH(const QByteArray, line);
        const auto files = OpenRequest::fromLine(line);
        QTEST(files ? files->join(u'|') : QStringLiteral("refused"), "files");
    }

    void handsOverToTheOneThatRuns()
    {
        QVERIFY(!handOver());
        folder_.write("socket", "left by a crash");
        folder_.write("lock", "999999999\nkelvarion-composer\n" + QSysInfo::machineHostName().toLocal8Bit() + '\n');
        RunningProgram program(place(), folder_.path("lock"));
        QSignalSpy arrivals(&program, &RunningProgram::filesArrived);
        QVERIFY(program.listen());
        RunningProgram second(place(), folder_.path("lock"));
        QVERIFY(!second.listen());

        QLocalSocket silent, garbled, overlong;
        for (auto *const socket : {&silent, &garbled, &overlong})
            socket->connectToServer(place());
        garbled.write(QByteArray(5000, '\xFF') + '\n');
        overlong.write(QByteArray(4 * OpenRequest::mostBytes, '['));
        QTRY_COMPARE(garbled.state(), QLocalSocket::UnconnectedState);
        QTRY_COMPARE(overlong.state(), QLocalSocket::UnconnectedState);
        connect(&program, &RunningProgram::filesArrived, [] { // as questions do
            QEventLoop loop;
            QTimer::singleShot(100, &loop, &QEventLoop::quit);
            loop.exec();
        });
        QVERIFY(handOver());
        QTRY_COMPARE(arrivals.count(), 1);
        QCOMPARE(arrivals.first().first().toStringList(),
                 QStringList(QDir().absoluteFilePath(QStringLiteral("a.abc"))));
        QTRY_COMPARE(silent.state(), QLocalSocket::UnconnectedState); // whoever says nothing keeps nothing
    }

    void opensWhatArrivedWhenNothingIsAsked()
    {
        WindowFixture fixture(QStringLiteral(DEMO_GAME));
        QVERIFY(fixture.waitUntilLoaded());
        fixture.dialogs().answerOrCancel = Dialogs::Answer::No; // the track that is there stays
        ArrivedFiles arrived;
        arrived.add({folder_.write("first.abc", "X:1\nT:First\nK:C\nC4\n")});
        arrived.setWindow(&fixture.window());
        QTRY_COMPARE(fixture.tracks().song().size(), 1);
        QDialog question(&fixture.window());
        question.setModal(true);
        question.show();
        arrived.add({folder_.write("second.abc", "X:1\nT:Second\nK:C\nC4\n")});
        QTest::qWait(300);
        QCOMPARE(fixture.tracks().song().size(), 1);
        question.close();
        QTRY_COMPARE(fixture.tracks().song().size(), 2);
    }

private:
    QString place() const { return folder_.path("socket"); }

    // As another program does, while this one works.
    bool handOver() const
    {
        std::atomic<int> taken = -1;
        std::thread other([&] { taken = RunningProgram::handOver(place(), {QStringLiteral("a.abc")}) ? 1 : 0; });
        while (taken < 0)
            QTest::qWait(1);
        other.join();
        return taken == 1;
    }

    TestFolder folder_;
};

QTEST_MAIN(TestRunningProgram)
#include "test_running_program.moc"
