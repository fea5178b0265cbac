#pragma once

#include <QStringList>
#include <QtGlobal>

#include <mutex>

// What the program logs while this lives, from any thread.
class LoggedLines
{
public:
    LoggedLines()
    {
        lines().clear();
        previous_ = qInstallMessageHandler([](QtMsgType, const QMessageLogContext &, const QString &line) {
            const std::lock_guard lock(mutex());
            lines().append(line);
        });
    }
    LoggedLines(const LoggedLines &) = delete;
    LoggedLines &operator=(const LoggedLines &) = delete;
    ~LoggedLines() { qInstallMessageHandler(previous_); }

    int count(const char *part = "") const
    {
        const std::lock_guard lock(mutex());
        return int(lines().filter(QString::fromUtf8(part)).size());
    }

private:
    static QStringList &lines()
    {
        static QStringList instance;
        return instance;
    }
    static std::mutex &mutex()
    {
        static std::mutex instance;
        return instance;
    }
    QtMessageHandler previous_;
};
