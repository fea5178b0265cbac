#pragma once

#include "audio/engine/GroupBus.h"

#include <atomic>

// Collects RMS and peak of all blocks between two readings. The mixer writes, one other thread reads; neither waits.
class GroupMeter
{
public:
    // [mixer]
    void addBlock(const BlockLevels &levels, std::size_t frames);
    // [audio]
    MeterReading read();
    void reset();

private:
    // Of the mixer.
    BlockLevels levels_;
    std::size_t frames_ = 0;

    // Left in the lower half, right in the upper one.
    std::atomic<std::uint64_t> powers_{0}; // mean squares
    std::atomic<std::uint64_t> peaks_{0};
    std::atomic<bool> read_{false}; // since then a new period begins
};
