#include "base/Task.h"

#include "base/ErrorText.h"
#include "base/JobPool.h"

#include <QCoreApplication>
#include <QEvent>

#include <mutex>
#include <optional>
#include <utility>

namespace {

constexpr int progressPauseMs = 50;

} // namespace

// What the task and its work share. Everything passes through a lock of the standard library, the event says only that
// there is something, so that ThreadSanitizer can follow.
class Task::Run : public std::enable_shared_from_this<Task::Run>
{
public:
    Run(Task *task, std::size_t bytes) : task_(task), share_(ByteBudget::shared(), bytes) {}

    void begin(Work work, Failed failed)
    {
        const auto job = [self = shared_from_this(), work = std::move(work), failed = std::move(failed)] {
            self->perform(work, failed);
        };
        share_.ask([job] { JobPool::shared().start(job); });
    }

    void cancel()
    {
        stop_.request_stop();
        share_.withdraw();
        const std::lock_guard lock(mutex_);
        task_ = nullptr;
    }

    void stop() { stop_.request_stop(); }

    Delivery takeResult()
    {
        const std::lock_guard lock(mutex_);
        return std::exchange(result_, nullptr);
    }

    std::optional<TaskProgress> takeProgress()
    {
        const std::lock_guard lock(mutex_);
        return std::exchange(progress_, std::nullopt);
    }

private:
    void perform(const Work &work, const Failed &failed)
    {
        if (isCancelled())
            return;
        auto result = resultOf(work, failed);
        const std::lock_guard lock(mutex_);
        if (!task_)
            return;
        result_ = std::move(result);
        wakeTask();
    }

    Delivery resultOf(const Work &work, const Failed &failed)
    {
        try {
            const auto deliver =
                work(TaskControl(stop_.get_token(), [this](TaskProgress progress) { tell(progress); }));
            return [deliver, failed] {
                try {
                    deliver();
                } catch (...) {
                    failed(currentErrorText());
                }
            };
        } catch (...) {
            return [failed, text = currentErrorText()] { failed(text); };
        }
    }

    bool isCancelled()
    {
        const std::lock_guard lock(mutex_);
        return !task_;
    }

    void tell(TaskProgress progress)
    {
        const std::lock_guard lock(mutex_);
        const bool isWaiting = progress_.has_value();
        progress_ = progress;
        if (task_ && !isWaiting)
            wakeTask();
    }

    void wakeTask() { QCoreApplication::postEvent(task_, new QEvent(QEvent::User)); }

    std::stop_source stop_;
    std::mutex mutex_; // of the three below
    Task *task_;       // null when it was cancelled
    Delivery result_;
    std::optional<TaskProgress> progress_; // that was not delivered yet
    ByteShare share_;
};

Task::Task()
{
    progressTimer_.setSingleShot(true);
    connect(&progressTimer_, &QTimer::timeout, this, &Task::deliverProgress);
}

void Task::stop()
{
    if (run_)
        run_->stop();
}

void Task::cancel()
{
    progressTimer_.stop();
    if (run_)
        std::exchange(run_, nullptr)->cancel();
}

void Task::startRun(Work work, Failed failed, std::size_t bytes)
{
    cancel();
    sinceProgress_.invalidate();
    run_ = std::make_shared<Run>(this, bytes);
    run_->begin(std::move(work), std::move(failed));
}

void Task::customEvent(QEvent *)
{
    if (!run_)
        return;
    if (const auto deliver = run_->takeResult()) {
        progressTimer_.stop();
        run_.reset();
        deliver();
    } else if (!sinceProgress_.isValid() || sinceProgress_.hasExpired(progressPauseMs)) {
        deliverProgress();
    } else if (!progressTimer_.isActive()) {
        progressTimer_.start(progressPauseMs - int(sinceProgress_.elapsed()));
    }
}

void Task::deliverProgress()
{
    const auto progress = run_ ? run_->takeProgress() : std::nullopt;
    if (!progress)
        return;
    sinceProgress_.start();
    if (tellProgress_)
        tellProgress_(*progress);
}
