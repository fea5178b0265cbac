#include "base/ParallelJobs.h"

#include <algorithm>
#include <chrono>
#include <thread>
#include <utility>

struct ParallelJobs::UnderWay
{
    Job<Nothing> job;
    ByteShare share;
    std::exception_ptr failure;
    bool hasEnded = false; // guarded, like the failure before
};

std::size_t ParallelJobs::allCores()
{
    return std::max(1U, std::thread::hardware_concurrency());
}

ParallelJobs::ParallelJobs(std::size_t cores, std::function<void()> whileWaiting, ByteBudget &budget)
    : cores_(cores), whileWaiting_(std::move(whileWaiting)), budget_(budget), pool_(int(cores))
{
}

ParallelJobs::~ParallelJobs()
{
    abandon();
}

void ParallelJobs::runAll(const std::function<std::optional<Job<Nothing>>()> &nextJob)
{
    abandon();
    for (;;) {
        while (queue_.size() < mostUnderWay()) {
            auto job = nextJob();
            if (!job)
                break;
            queue_.push_back(begin(*std::move(job)));
        }
        if (queue_.empty())
            return;
        awaitEnd(*queue_.front());
        const auto first = std::move(queue_.front());
        queue_.pop_front();
        if (first->failure)
            std::rethrow_exception(first->failure);
        first->job.take({});
    }
}

std::shared_ptr<ParallelJobs::UnderWay> ParallelJobs::begin(Job<Nothing> job)
{
    const auto bytes = job.bytes;
    const std::shared_ptr<UnderWay> begun(new UnderWay{std::move(job), {budget_, bytes}, {}, false});
    begun->share.ask([this, begun] { pool_.start([this, begun] { work(*begun); }); });
    return begun;
}

void ParallelJobs::work(UnderWay &job)
{
    std::exception_ptr failure;
    try {
        job.job.work();
    } catch (...) {
        failure = std::current_exception();
    }
    job.job.work = {}; // what it holds is not needed any more
    const std::lock_guard lock(mutex_);
    job.failure = std::move(failure);
    job.hasEnded = true;
    ended_.notify_all();
}

void ParallelJobs::awaitEnd(const UnderWay &job)
{
    constexpr std::chrono::milliseconds patience{5};
    for (;;) {
        whileWaiting_();
        std::unique_lock lock(mutex_);
        if (ended_.wait_for(lock, patience, [&job] { return job.hasEnded; }))
            return;
    }
}

// Those that have not begun never will.
void ParallelJobs::abandon()
{
    for (const auto &job : queue_)
        job->share.withdraw();
    pool_.wait();
    queue_.clear();
}
