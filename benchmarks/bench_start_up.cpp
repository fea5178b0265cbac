// Measures the time from the start of a process to the first painted window, of the program and of an empty Qt main
// window of the same size, taking turns, and of the scan of the demo game. Fails when the program takes longer than one
// and a half empty windows and the scan. Tells the most memory that the window took, too. QT_QPA_PLATFORM chooses the
// platform, offscreen when there is none. bench_start_up [ROUNDS]

#include "app/ExampleSongs.h"
#include "app/WindowFixture.h"
#include "support/Figures.h"

#include <QProcess>

#include <cstdio>
#include <sys/resource.h>
#include <unistd.h>
#include <vector>

namespace {

double peakMegabytes()
{
    rusage usage = {};
    getrusage(RUSAGE_SELF, &usage);
    return double(usage.ru_maxrss) / 1024;
}

// Ends the process when its window is painted, and prints how much memory it took.
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
        if (--depth_ == 0 && isPainted_) {
            std::printf("%.1f\n", peakMegabytes());
            std::fflush(stdout);
            _exit(0);
        }
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
    std::vector<double> megabytes;
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
    QProcess child;
    child.start(QCoreApplication::applicationFilePath(), arguments);
    child.waitForFinished(-1);
    times.wall.push_back(double(timer.nsecsElapsed()) / 1e6);
    times.processor.push_back(processorMs() - before);
    times.megabytes.push_back(child.readAllStandardOutput().toDouble());
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
    constexpr double longestStart = 1000, mostMegabytes = 200;
    bool isGood = report({"Start-up: ms", median(window.wall), longestStart, {}, Better::Less});
    isGood &= report({"Start-up: most memory, MB", median(window.megabytes), mostMegabytes, {}, Better::Less});
    const auto ratio = (median(window.wall) - median(scan)) / median(empty.wall);
    isGood &= report({"Start-up but for the scan / empty window", ratio, 1.5, {}, Better::Less});
    return isGood ? 0 : 1;
}
