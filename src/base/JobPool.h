#pragma once

#include <QRunnable>
#include <QThreadPool>

#include <condition_variable>
#include <deque>
#include <functional>
#include <limits>
#include <mutex>

// Threads that begin jobs in the order in which they come. A job that throws is a logged error. The locks are those of
// the standard library, which ThreadSanitizer can see. [any]
class JobPool : private QRunnable
{
public:
    static constexpr std::size_t anyNumber = std::numeric_limits<std::size_t>::max();

    // With threads of its own; start() waits while so many jobs have not begun.
    explicit JobPool(int threads, std::size_t mostWaiting = anyNumber);
    ~JobPool() override; // waits for all jobs

    static JobPool &shared(); // of tasks, on the threads of the application's pool

    void start(std::function<void()> job);
    void wait(); // until every job has ended

private:
    JobPool();
    void run() override; // the next job
    std::function<void()> takeNext();

    std::mutex mutex_; // of the three below
    std::condition_variable changed_;
    std::deque<std::function<void()>> waiting_;
    std::size_t unfinished_ = 0;
    const std::size_t mostWaiting_ = anyNumber;
    QThreadPool own_; // first at the end
    QThreadPool &threads_;
};
