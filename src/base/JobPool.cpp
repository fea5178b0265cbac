#include "base/JobPool.h"

#include "base/ErrorText.h"

#include <QLoggingCategory>

#include <utility>

Q_LOGGING_CATEGORY(jobsLog, "kelvarion.jobs")

JobPool::JobPool() : threads_(*QThreadPool::globalInstance())
{
    setAutoDelete(false);
}

JobPool::JobPool(int threads, std::size_t mostWaiting) : mostWaiting_(mostWaiting), threads_(own_)
{
    setAutoDelete(false);
    own_.setMaxThreadCount(threads);
}

JobPool::~JobPool()
{
    wait();
}

JobPool &JobPool::shared()
{
    static JobPool pool;
    return pool;
}

void JobPool::start(std::function<void()> job)
{
    {
        std::unique_lock lock(mutex_);
        changed_.wait(lock, [this] { return waiting_.size() < mostWaiting_; });
        waiting_.push_back(std::move(job));
        ++unfinished_;
    }
    threads_.start(this);
}

void JobPool::wait()
{
    std::unique_lock lock(mutex_);
    changed_.wait(lock, [this] { return unfinished_ == 0; });
}

std::function<void()> JobPool::takeNext()
{
    const std::lock_guard lock(mutex_);
    auto job = std::move(waiting_.front());
    waiting_.pop_front();
    changed_.notify_all();
    return job;
}

void JobPool::run()
{
    try {
        takeNext()(); // and what it holds is given back before anybody is told of its end
    } catch (...) {
        qCCritical(jobsLog).noquote() << currentErrorText();
    }
    const std::lock_guard lock(mutex_);
    --unfinished_;
    changed_.notify_all();
}
