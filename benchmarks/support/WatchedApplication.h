#pragma once

#include "app/Application.h"

#include <QElapsedTimer>
#include <QFile>
#include <QThread>

#include <algorithm>
#include <stdexcept>

// An application that knows how long its thread was kept from handling events: the longest time that one event took,
// without the time in which the system ran other threads and programs instead. QT_QPA_PLATFORM chooses the platform,
// offscreen when there is none.
class WatchedApplication : public Application
{
public:
    WatchedApplication(int &argc, char **argv) : Application(withPlatform(argc), argv)
    {
        setStyle(QStringLiteral("Fusion"));
    }

    // Ends the program when the window did not do what it was asked for.
    static void require(bool isDone)
    {
        if (!isDone)
            throw std::runtime_error("the window did not do what it was asked for");
    }

    // The event loop that a piece of work runs in.
    struct Loop
    {
        int level = 0;
        bool hasWaited = false; // in a loop within it
    };

    // Measures one piece of work; pieces within another belong to it. Where it waits in an event loop of its own, as a
    // dialog does, each event there is a piece, and what comes after them another.
    class Watch
    {
    public:
        Watch() : begins_(depth()++ == 0 || QThread::currentThread()->loopLevel() > loop().level), outer_(loop())
        {
            if (!begins_)
                return;
            if (depth() > 1 && !loop().hasWaited)
                takeTime();
            loop() = {QThread::currentThread()->loopLevel(), false};
            start();
        }
        ~Watch()
        {
            --depth();
            if (!begins_)
                return;
            takeTime();
            loop() = {outer_.level, true};
            start();
        }

    private:
        bool begins_;
        Loop outer_;
    };

    bool notify(QObject *receiver, QEvent *event) override
    {
        if (QThread::currentThread() != thread()) // events of the audio and render threads pass here too
            return Application::notify(receiver, event);
        const Watch watch;
        return Application::notify(receiver, event);
    }

    static double takeLongestMs() { return std::exchange(longest(), 0); }

private:
    static int &withPlatform(int &argc)
    {
        if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
            qputenv("QT_QPA_PLATFORM", "offscreen");
        return argc;
    }

    static int &depth()
    {
        static int value = 0;
        return value;
    }
    static Loop &loop()
    {
        static Loop value;
        return value;
    }
    static QElapsedTimer &clock()
    {
        static QElapsedTimer value;
        return value;
    }
    static double &waited()
    {
        static double value = 0;
        return value;
    }
    static double &longest()
    {
        static double value = 0;
        return value;
    }

    static void start()
    {
        waited() = waitedMs();
        clock().start();
    }
    static void takeTime()
    {
        const auto wall = double(clock().nsecsElapsed()) / 1e6;
        longest() = std::max(longest(), wall < 20 ? wall : wall - (waitedMs() - waited()));
    }

    // How long this thread was ready but not running; 0 where the system does not tell.
    static double waitedMs()
    {
        QFile statistics(QStringLiteral("/proc/thread-self/schedstat"));
        if (!statistics.open(QIODevice::ReadOnly))
            return 0;
        return statistics.readAll().split(' ').value(1).toDouble() / 1e6;
    }
};
