#pragma once

#include <QCoreApplication>
#include <QObject>
#include <QPointer>
#include <QThreadPool>

#include <atomic>
#include <functional>
#include <memory>

// Work beside the interface thread. The work gets a flag that tells it to stop early; its result is delivered on the
// interface thread, unless the task was cancelled or destroyed. Work that pays no heed to the flag ends in its own time
// and nobody waits for it, so it must hold nothing but values.
class BackgroundTask
{
public:
    using Cancelled = std::atomic<bool>;

    BackgroundTask() = default;
    BackgroundTask(const BackgroundTask &) = delete;
    BackgroundTask &operator=(const BackgroundTask &) = delete;
    ~BackgroundTask() { cancel(); }

    bool isRunning() const { return cancelled_ != nullptr; }

    void cancel()
    {
        if (cancelled_)
            *cancelled_ = true;
        cancelled_.reset();
    }

    // Cancels what runs. receiver: whose thread gets the result; nothing is delivered once it is gone.
    template<typename Work, typename Deliver>
    void start(QObject *receiver, Work work, Deliver deliver)
    {
        cancel();
        cancelled_ = std::make_shared<Cancelled>(false);
        const auto flag = cancelled_;
        const QPointer<QObject> target(receiver);
        QThreadPool::globalInstance()->start([=, this] {
            auto result = std::make_shared<decltype(work(*flag))>(work(*flag));
            QMetaObject::invokeMethod(
                qApp,
                [=, this] {
                    if (*flag || !target)
                        return;
                    cancelled_.reset();
                    deliver(*result);
                },
                Qt::QueuedConnection);
        });
    }

private:
    std::shared_ptr<Cancelled> cancelled_;
};
