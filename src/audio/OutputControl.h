#pragma once

#include <atomic>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <future>
#include <mutex>
#include <string>
#include <utility>
#include <vector>

// The sound device that is wanted.
struct OutputChoice
{
    std::string device;          // its name, UTF-8; empty: the system's default
    std::size_t blockFrames = 0; // that it asks for at a time; 0: 2048, and twice that after it has run dry

    bool operator==(const OutputChoice &) const = default;
};

// How the device that was opened last does.
struct OutputFigures
{
    std::string missing;         // the device that was wanted, where it is the default that plays in its place
    double latency = 0;          // milliseconds that its block lasts; 0: none was opened
    std::uint64_t underruns = 0; // since the program's start, of all devices
};

// What the engines of a program share with those who choose their device and watch it. Engines that play take up a new
// choice at once. [any]
class OutputControl
{
public:
    using Names = std::vector<std::string>;
    using Search = std::function<std::future<Names>()>; // takes as long as the sound server likes

    explicit OutputControl(Search search = {}) : search_(std::move(search)) {}

    // The devices that can be chosen; not valid() where nothing knows them.
    std::future<Names> findDevices() const { return search_ ? search_() : std::future<Names>(); }

    void choose(const OutputChoice &choice)
    {
        change([&](OutputFigures &figures) {
            choice_ = choice;
            figures.missing.clear(); // until it is looked for
        });
        ++choices_;
    }
    OutputChoice choice() const
    {
        const std::lock_guard lock(mutex_);
        return choice_;
    }
    unsigned choices() const { return choices_.load(std::memory_order_relaxed); } // how many were made

    OutputFigures figures() const
    {
        const std::lock_guard lock(mutex_);
        return figures_;
    }
    // Called when the figures have changed, on the thread of an engine; it must not call back. Empty: nothing is.
    void setListener(std::function<void()> listener)
    {
        const std::lock_guard lock(mutex_);
        listener_ = std::move(listener);
    }

    // What engines tell.
    void tellOpened(const std::string &missing, double latency)
    {
        change([&](OutputFigures &figures) {
            figures.missing = missing;
            figures.latency = latency;
        });
    }
    void tellUnderruns(std::uint64_t more)
    {
        change([&](OutputFigures &figures) { figures.underruns += more; });
    }

private:
    template<typename Change>
    void change(Change change)
    {
        const std::lock_guard lock(mutex_);
        change(figures_);
        if (listener_)
            listener_();
    }

    const Search search_;
    std::atomic<unsigned> choices_{0};
    mutable std::mutex mutex_; // all below
    OutputChoice choice_;
    OutputFigures figures_;
    std::function<void()> listener_;
};
