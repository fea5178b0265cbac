// Measures the time from the start of a process to the first painted window, of the program and of an empty Qt main
// window of the same size, taking turns, and of the scan of the demo game. Fails when the program takes longer than one
// and a half empty windows and the scan. QT_QPA_PLATFORM chooses the platform, offscreen when there is none.
// bench_start_up [ROUNDS]

#include "app/ExampleSongs.h"
#include "app/WindowFixture.h"
#include "support/Figures.h"

#include <QProcess>

#include <cstdio>
#include <sys/resource.h>
#include <unistd.h>
#include <vector>

namespace {

// Ends the process when its window is painted.
class PaintedApplication : public QApplication
{
public:
    using QApplication::QApplication;

    bool notify(QObject *receiver, QEvent *event) override
    {
        if (QThread::currentThread() != thread()) // events of the audio thread pass here too
            return QApplication::notify(receiver, event);
        ++depth_;
        isPainted_ = isPainted_ || (event->type() == QEvent::Paint && qobject_cast<QMainWindow *>(receiver));
        const bool result = QApplication::notify(receiver, event);
        if (--depth_ == 0 && isPainted_)
            _exit(0);
        return result;
    }

private:
    int depth_ = 0;
    bool isPainted_ = false;
};

int show(int argc, char **argv, const QString &game)
{
    PaintedApplication application(argc, argv);
    QApplication::setStyle(QStringLiteral("Fusion"));
    if (!game.isEmpty()) {
        const WindowFixture fixture(game);
        return QApplication::exec();
    }
    QMainWindow empty;
    empty.resize(1180, 760);
    empty.show();
    return QApplication::exec();
}

struct Times
{
    std::vector<double> wall;
    std::vector<double> processor;
};

double median(std::vector<double> values)
{
    std::sort(values.begin(), values.end());
    return values[values.size() / 2];
}

double processorMs()
{
    rusage usage = {};
    getrusage(RUSAGE_CHILDREN, &usage);
    const auto ms = [](const timeval &time) { return double(time.tv_sec) * 1e3 + double(time.tv_usec) / 1e3; };
    return ms(usage.ru_utime) + ms(usage.ru_stime);
}

void start(Times &times, const QStringList &arguments)
{
    const auto before = processorMs();
    QElapsedTimer timer;
    timer.start();
    QProcess::execute(QCoreApplication::applicationFilePath(), arguments);
    times.wall.push_back(double(timer.nsecsElapsed()) / 1e6);
    times.processor.push_back(processorMs() - before);
}

} // namespace

int main(int argc, char **argv)
{
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    if (argc == 3 && qstrcmp(argv[1], "show") == 0)
        return show(argc, argv, QString::fromLocal8Bit(argv[2]));
    const QCoreApplication application(argc, argv);
    Times window;
    Times empty;
    std::vector<double> scan;
    for (int round = argc > 1 ? QByteArray(argv[1]).toInt() : 31; round > 0; --round) {
        start(empty, {QStringLiteral("show"), QString()});
        start(window, {QStringLiteral("show"), demoGame});
        QElapsedTimer timer;
        timer.start();
        scanInstruments(demoGame, Mods::Skip);
        scan.push_back(double(timer.nsecsElapsed()) / 1e6);
    }
    std::printf("median ms: window %.1f, of the processor %.1f; empty %.1f, of the processor %.1f; scan %.1f\n",
                median(window.wall), median(window.processor), median(empty.wall), median(empty.processor),
                median(scan));
    const auto ratio = (median(window.wall) - median(scan)) / median(empty.wall);
    return report({"Start-up but for the scan / empty window", ratio, 1.5, {}, Better::Less}) ? 0 : 1;
}
