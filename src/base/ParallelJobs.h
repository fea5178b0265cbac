#pragma once

#include "base/ByteBudget.h"
#include "base/JobPool.h"

#include <deque>
#include <exception>
#include <functional>
#include <memory>
#include <optional>

// Work for another core, and what its owner does with the result.
template<typename Result>
struct Job
{
    std::function<Result()> work;     // [any]
    std::function<void(Result)> take; // on the owner's thread
    std::size_t bytes = 0;            // of the budget, from the work's begin until its result was taken
};

// Runs jobs on all cores. One run at a time; the owner's thread waits for it.
class ParallelJobs
{
public:
    static std::size_t allCores();

    // whileWaiting: called by the waiting owner every few milliseconds; what it throws ends the run.
    explicit ParallelJobs(
        std::size_t cores = allCores(), std::function<void()> whileWaiting = [] {},
        ByteBudget &budget = ByteBudget::shared());
    ~ParallelJobs();

    std::size_t cores() const { return cores_; }

    // Asks for jobs until there are none, and takes their results in the order of the jobs. A taken result may bring
    // new jobs. Rethrows what a job throws. Jobs that are under way then are waited for by the next run or the
    // destructor, so that the exception gets out at once.
    template<typename Result>
    void run(const std::function<std::optional<Job<Result>>()> &nextJob)
    {
        runAll([&nextJob]() -> std::optional<Job<Nothing>> {
            auto job = nextJob();
            if (!job)
                return std::nullopt;
            const auto result = std::make_shared<std::optional<Result>>();
            const auto work = [result, work = std::move(job->work)] {
                result->emplace(work());
                return Nothing();
            };
            const auto take = [result, take = std::move(job->take)](Nothing) { take(*std::move(*result)); };
            return Job<Nothing>{work, take, job->bytes};
        });
    }

private:
    struct Nothing
    {
    };
    struct UnderWay;

    void runAll(const std::function<std::optional<Job<Nothing>>()> &nextJob);
    std::shared_ptr<UnderWay> begin(Job<Nothing> job);
    void work(UnderWay &job); // [any]
    void awaitEnd(const UnderWay &job);
    void abandon();
    // More than there are cores, so that none rests while the owner takes a result, or waits for one that takes longer
    // than those behind it.
    std::size_t mostUnderWay() const { return cores_ == 1 ? 1 : 4 * cores_; }

    std::size_t cores_;
    std::function<void()> whileWaiting_;
    ByteBudget &budget_;
    std::mutex mutex_; // of the ends of jobs
    std::condition_variable ended_;
    std::deque<std::shared_ptr<UnderWay>> queue_;
    JobPool pool_; // behind what its jobs use
};
