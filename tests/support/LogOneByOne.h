#pragma once

#include <QtGlobal>

#include <mutex>

// For tests whose expected warnings come from several threads: Qt 5's list of them is for one thread at a time. To be
// called by initTestCase(), when Qt Test listens.
inline void logOneByOne()
{
    static std::mutex mutex;
    static QtMessageHandler next = nullptr;
    next = qInstallMessageHandler([](QtMsgType type, const QMessageLogContext &context, const QString &line) {
        const std::lock_guard lock(mutex);
        next(type, context, line);
    });
}
