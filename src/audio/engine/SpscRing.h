#pragma once

#include <array>
#include <atomic>
#include <cstddef>

// A queue of fixed size between one writing and one reading thread. No call waits, locks or allocates.
template<class T, std::size_t Capacity>
class SpscRing
{
    static_assert((Capacity & (Capacity - 1)) == 0, "the counters wrap");

public:
    // False when the ring is full. [writer]
    bool push(const T &item)
    {
        const auto tail = tail_.load(std::memory_order_relaxed);
        if (tail - head_.load(std::memory_order_acquire) == Capacity)
            return false;
        items_[tail % Capacity] = item;
        tail_.store(tail + 1, std::memory_order_release);
        return true;
    }

    // False when the ring is empty. [reader]
    bool pop(T &item)
    {
        const auto head = head_.load(std::memory_order_relaxed);
        if (head == tail_.load(std::memory_order_acquire))
            return false;
        item = items_[head % Capacity];
        head_.store(head + 1, std::memory_order_release);
        return true;
    }

private:
    // On cache lines of their own, since two threads write them.
    alignas(64) std::atomic<std::size_t> head_{0};
    alignas(64) std::atomic<std::size_t> tail_{0};
    alignas(64) std::array<T, Capacity> items_{};
};
