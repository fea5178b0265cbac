#pragma once

#include <QCoreApplication>
#include <QObject>
#include <QPointer>
#include <QThreadPool>

#include <memory>
#include <optional>
#include <stop_token>

// Work beside the interface thread. The work gets a token that tells it to stop early; its result is delivered on the
// interface thread, unless the task was cancelled or destroyed. Nobody but the end of the process waits for work that
// was cancelled, so it must hold nothing but values.
class BackgroundTask
{
public:
    BackgroundTask() = default;
    BackgroundTask(const BackgroundTask &) = delete;
    BackgroundTask &operator=(const BackgroundTask &) = delete;
    ~BackgroundTask() { cancel(); }

    bool isRunning() const { return running_.has_value(); }

    void cancel()
    {
        if (running_)
            running_->request_stop();
        running_.reset();
    }

    // Cancels what runs. receiver: whose thread gets the result; nothing is delivered once it is gone.
    template<typename Work, typename Deliver>
    void start(QObject *receiver, Work work, Deliver deliver)
    {
        cancel();
        const auto stop = running_.emplace().get_token();
        const QPointer<QObject> target(receiver);
        QThreadPool::globalInstance()->start([=, this] {
            auto result = std::make_shared<decltype(work(stop))>(work(stop));
            QMetaObject::invokeMethod(
                qApp,
                [=, this] {
                    if (stop.stop_requested() || !target)
                        return;
                    running_.reset();
                    deliver(*result);
                },
                Qt::QueuedConnection);
        });
    }

private:
    std::optional<std::stop_source> running_;
};
