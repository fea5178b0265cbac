#pragma once

#include "base/ByteBudget.h"

#include <QElapsedTimer>
#include <QObject>
#include <QTimer>

#include <functional>
#include <memory>
#include <stop_token>

// How far a piece of work is, in units of its own.
struct TaskProgress
{
    int done = 0;
    int total = 0;
};

// What the work of a task sees of it. [any]
class TaskControl
{
public:
    explicit TaskControl(std::stop_token stop, std::function<void(TaskProgress)> report)
        : stop_(std::move(stop)), report_(std::move(report))
    {
    }

    const std::stop_token &stop() const { return stop_; } // asks the work to end early
    void report(int done, int total) const { report_({done, total}); }

private:
    std::stop_token stop_;
    std::function<void(TaskProgress)> report_;
};

// Work beside the interface thread, one piece at a time, on the application's thread pool. It belongs to one thread
// with an event loop, usually as a member of the object that wants the result. There the result is delivered, or the
// text of whatever the work or the delivery threw; nothing is once the task was cancelled or destroyed. Nobody but the
// end of the process waits for work that was cancelled, so it must hold nothing but values. Who gets a result may start
// the task again, but not destroy it.
class Task : public QObject
{
public:
    Task();
    ~Task() override { cancel(); }

    bool isRunning() const { return run_ != nullptr; } // until its result is delivered
    void cancel();
    void stop(); // asks the work to end early; what it has then is delivered

    // Of everything that is started from now on: told at most every 50 ms, and never after the result.
    void onProgress(std::function<void(TaskProgress)> tell) { tellProgress_ = std::move(tell); }

    // Cancels what runs. work: Result(const TaskControl &); done: takes the result; failed: takes a QString. bytes: of
    // the shared budget, which it waits for.
    template<typename MakeResult, typename Done>
    void start(MakeResult work, Done done, std::function<void(const QString &)> failed, std::size_t bytes = 0)
    {
        const auto run = [work = std::move(work), done = std::move(done)](const TaskControl &control) -> Delivery {
            using Result = decltype(work(control));
            auto result = std::make_shared<Result>(work(control));
            return [result, done] { done(*std::move(result)); };
        };
        startRun(run, std::move(failed), bytes);
    }

protected:
    void customEvent(QEvent *event) override; // there is something to deliver

private:
    using Delivery = std::function<void()>;
    using Work = std::function<Delivery(const TaskControl &)>;
    using Failed = std::function<void(const QString &)>;
    class Run;

    void startRun(Work work, Failed failed, std::size_t bytes);
    void deliverProgress();

    std::shared_ptr<Run> run_;
    std::function<void(TaskProgress)> tellProgress_;
    QElapsedTimer sinceProgress_;
    QTimer progressTimer_{this};
};
