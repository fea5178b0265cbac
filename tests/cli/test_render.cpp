#include "audio/SampleFiles.h"
#include "audio/WaveFile.h"

#include <QDir>
#include <QElapsedTimer>
#include <QFileInfo>
#include <QProcess>
#include <QtTest>

#include <csignal>

namespace {

struct Outcome
{
    int status;
    QByteArray out;
    QByteArray error;
};

Outcome outcomeOf(QProcess &program)
{
    if (!program.waitForFinished() || program.exitStatus() != QProcess::NormalExit)
        qFatal("the program did not end by itself");
    return {program.exitCode(), program.readAllStandardOutput(), program.readAllStandardError()};
}

void start(QProcess &program, const QStringList &arguments)
{
    program.start(QStringLiteral(COMPOSER_CLI), QStringList(QStringLiteral("render")) + arguments);
}

Outcome render(const QStringList &arguments)
{
    QProcess program;
    start(program, arguments);
    return outcomeOf(program);
}

} // namespace

// kelvarion-composer-cli render, run as a user runs it.
class TestRender : public QObject
{
    Q_OBJECT

    SampleFiles files_;
    const QString wav_ = files_.path(QStringLiteral("out.wav"));

    QString write(const QString &name, const QByteArray &bytes) const
    {
        QDir().mkpath(QFileInfo(files_.path(name)).path());
        return files_.write(name, bytes);
    }

    void addInstrument(const QByteArray &name, qint16 level) const
    {
        const auto item = QStringLiteral("game/assets/items/instruments/%1.instrument").arg(QString::fromUtf8(name));
        const auto directory = QStringLiteral("game/assets/sfx/instruments/%1/").arg(QString::fromUtf8(name));
        write(item, QByteArray(R"({"shortdescription": "NAME", "kind": "NAME"})").replace("NAME", name));
        write(directory + QStringLiteral("tuning.config"),
              R"({"fadeout": 0, "mapping": {"60": {"file": "click.wav", "f": 261.6}}})");
        write(directory + QStringLiteral("click.wav"), waveBytes({level}));
    }

    QStringList with(const QStringList &inputs) const
    {
        return inputs + QStringList{QStringLiteral("--game"), files_.path(QStringLiteral("game")),
                                    QStringLiteral("--output"), wav_};
    }

    // The level of the only click, and the frame where it is.
    std::pair<int, int> click() const
    {
        const WaveFile wave(wav_);
        for (std::size_t i = 0; i < wave.left.size(); ++i) {
            if (wave.left[i] != 0)
                return {wave.left[i], int(i)};
        }
        return {0, -1};
    }

private slots:
    void initTestCase()
    {
        addInstrument("bell", 10000);
        addInstrument("lute", 20000);
        write(QStringLiteral("game/linux64/kelvarion"), "x");
    }

    void init() { QFile::remove(wav_); }

    void instruments_data()
    {
        QTest::addColumn<QString>("field");
        QTest::addColumn<QStringList>("options");
        QTest::addColumn<int>("level");
        QTest::addColumn<QByteArray>("warning");
        const QStringList none, lute{QStringLiteral("--instrument"), QStringLiteral("lute")};
        const auto named = [](const char *name) {
            return QStringLiteral("I:Instrument:%1\n").arg(QLatin1String(name));
        };
        QTest::newRow("the first") << QString() << none << 10000 << QByteArray();
        QTest::newRow("the default one") << QString() << lute << 20000 << QByteArray();
        QTest::newRow("the track's own") << named("lute") << none << 20000 << QByteArray();
        QTest::newRow("the track's own first") << named("bell") << lute << 10000 << QByteArray();
        QTest::newRow("unknown") << named("kazoo") << lute << 20000
                                 << QByteArray(
                                        "kelvarion-composer-cli: Tune: Instrument 'kazoo' not found; playing lute.\n");
    }

    void instruments()
    {
        QFETCH(const QString, field);
        QFETCH(const QStringList, options);
        QFETCH(const int, level);
        QFETCH(const QByteArray, warning);
        const auto abc = QStringLiteral("X:1\nT:Tune\n%1L:1/4\nQ:1/4=60\nK:C\nzC\n").arg(field);
        const auto [status, out, error] = render(with({write(QStringLiteral("tune.abc"), abc.toUtf8())}) + options);
        QCOMPARE(status, 0);
        QCOMPARE(error, warning);
        QCOMPARE(out, "wrote " + wav_.toUtf8() + "\n");
        QCOMPARE(click().second, 48000);
        QCOMPARE(click().first, int(std::lround(level * std::sqrt(0.5))));
    }

    void inputsThatFailAreLeftOut()
    {
        const auto tune = write(QStringLiteral("tune.abc"), "X:1\nL:1/4\nQ:1/4=60\nK:C\nzzC\n");
        const auto missing = files_.path(QStringLiteral("missing.abc"));
        const auto [status, out, error] = render(with({missing, tune}));
        QCOMPARE(status, 1);
        QCOMPARE(error, "kelvarion-composer-cli: " + missing.toUtf8() + ": Could not open file.\n");
        QCOMPARE(click().second, 96000);
    }

    void refusals_data()
    {
        QTest::addColumn<QByteArray>("abc");
        QTest::addColumn<QStringList>("options");
        QTest::addColumn<QByteArray>("message");
        const QByteArray tune = "X:1\nK:C\nC\n";
        QTest::newRow("too long") << QByteArray("X:1\nL:1/1\nQ:1/4=1\nK:C\nz100C\n") << QStringList()
                                  << QByteArray("out.wav: The song is longer than 6 hours.");
        QTest::newRow("no game") << tune << QStringList{QStringLiteral("--game"), files_.path(QStringLiteral("."))}
                                 << QByteArray("No Kelvarion installation was found at the specified directory.");
        QTest::newRow("instrument") << tune << QStringList{QStringLiteral("--instrument"), QStringLiteral("kazoo")}
                                    << QByteArray("Instrument 'kazoo' not found.");
        QTest::newRow("target") << tune << QStringList{QStringLiteral("--output"), files_.path(QStringLiteral("."))}
                                << QByteArray("Not a regular file.");
    }

    void refusals()
    {
        QFETCH(const QByteArray, abc);
        QFETCH(const QStringList, options);
        QFETCH(const QByteArray, message);
        const auto [status, out, error] = render(with({write(QStringLiteral("tune.abc"), abc)}) + options);
        QCOMPARE(status, 1);
        QVERIFY2(error.endsWith(message + "\n") && error.count('\n') == 1, error.constData());
        QVERIFY(!QFile::exists(wav_));
    }

#ifdef Q_OS_UNIX
    void controlC()
    {
        QByteArray abc = "X:1\nL:1/4\nQ:1/4=60\nK:C\n";
        for (int i = 0; i < 1000; ++i)
            abc += "CDEFGABc CDEFGABc\n";
        QProcess program;
        start(program, with({write(QStringLiteral("long.abc"), abc)}));
        const QFileInfo unfinished(wav_ + QStringLiteral(".saving"));
        QTRY_VERIFY(QFile::exists(unfinished.filePath()) || program.state() == QProcess::NotRunning);
        QElapsedTimer timer;
        timer.start();
        ::kill(pid_t(program.processId()), SIGINT);
        const auto [status, out, error] = outcomeOf(program);
        QVERIFY2(timer.elapsed() < 200, qPrintable(QString::number(timer.elapsed())));
        QCOMPARE(status, 1);
        QCOMPARE(error, "kelvarion-composer-cli: " + wav_.toUtf8() + ": Cancelled.\n");
        QVERIFY(!QFile::exists(wav_) && !unfinished.exists());
    }
#endif
};

QTEST_GUILESS_MAIN(TestRender)
#include "test_render.moc"
