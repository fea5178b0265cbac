#pragma once

#include <cstddef>
#include <functional>
#include <list>
#include <mutex>

// How many bytes all work beside the interface may hold at once, whatever the number of cores. Who asks first gets
// first; what is larger than the whole budget gets it when nothing else is given out. [any]
class ByteBudget
{
public:
    explicit ByteBudget(std::size_t bytes) : limit_(bytes) {}
    ByteBudget(const ByteBudget &) = delete;
    ByteBudget &operator=(const ByteBudget &) = delete;

    static ByteBudget &shared(); // of the program

private:
    friend class ByteShare;
    struct Request
    {
        class ByteShare *share;
        std::function<void()> granted;
    };

    // To those in front, with the lock held; their requests must go without it.
    void grant(std::list<Request> &granted);

    const std::size_t limit_;
    std::mutex mutex_;
    std::size_t used_ = 0;
    std::list<Request> waiting_;
};

// A part of the budget for one piece of work; at its end it is given back. [any]
class ByteShare
{
public:
    // Takes nothing yet. The budget must outlive it.
    ByteShare(ByteBudget &budget, std::size_t bytes) : budget_(budget), bytes_(bytes) {}
    ByteShare(const ByteShare &) = delete;
    ByteShare &operator=(const ByteShare &) = delete;
    ~ByteShare();

    // Once. Calls `granted` as soon as there is room: perhaps at once, perhaps on the thread of somebody who gives
    // back. It must be short and leave the budget alone.
    void ask(std::function<void()> granted);
    // From now on it is not called any more.
    void withdraw();

private:
    friend class ByteBudget;

    ByteBudget &budget_;
    const std::size_t bytes_;
    bool isGranted_ = false; // guarded by the budget
};
