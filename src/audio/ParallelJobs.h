#pragma once

#include "base/Interrupted.h"

#include <QThread>

#include <algorithm>
#include <chrono>
#include <deque>
#include <functional>
#include <future>
#include <memory>
#include <optional>
#include <thread>

// Work for another core, and what its owner does with the result.
template<typename Result>
struct Job
{
    std::function<Result()> work;     // [any]
    std::function<void(Result)> take; // on the owner's thread
};

// Runs jobs on all cores. One run at a time; the owner's thread waits for it. [audio] [render]
class ParallelJobs
{
public:
    static std::size_t allCores() { return std::max(1U, std::thread::hardware_concurrency()); }

    // whileWaiting: called by the waiting owner every few milliseconds; what it throws ends the run like Interrupted.
    explicit ParallelJobs(
        std::size_t cores = allCores(), std::function<void()> whileWaiting = [] {})
        : cores_(cores), whileWaiting_(std::move(whileWaiting))
    {
    }

    std::size_t cores() const { return cores_; }

    // Asks for jobs until there are none, and takes their results in the order of the jobs. A taken result may bring
    // new jobs. Rethrows what a job throws, and throws Interrupted when the owner's thread is asked to stop. Jobs that
    // are under way then are waited for by the next run or the destructor, so that the exception gets out at once.
    template<typename Result>
    void run(const std::function<std::optional<Job<Result>>()> &nextJob)
    {
        struct UnderWay
        {
            std::future<Result> result;
            std::function<void(Result)> take;
        };
        const auto queue = std::make_shared<std::deque<UnderWay>>();
        queue_ = queue;
        for (;;) {
            while (queue->size() < mostUnderWay()) {
                auto job = nextJob();
                if (!job)
                    break;
                queue->push_back({std::async(std::launch::async, std::move(job->work)), std::move(job->take)});
            }
            if (queue->empty())
                return;
            do {
                if (QThread::currentThread()->isInterruptionRequested())
                    throw Interrupted();
                whileWaiting_();
            } while (queue->front().result.wait_for(patience) != std::future_status::ready);
            auto first = std::move(queue->front());
            queue->pop_front();
            first.take(first.result.get());
        }
    }

private:
    // One more than there are cores, so that none rests while the owner takes a result.
    std::size_t mostUnderWay() const { return cores_ == 1 ? 1 : cores_ + 1; }

    static constexpr std::chrono::milliseconds patience{5};

    std::size_t cores_;
    std::function<void()> whileWaiting_;
    std::shared_ptr<void> queue_;
};
