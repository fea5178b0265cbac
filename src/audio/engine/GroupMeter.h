#pragma once

#include "audio/AudioEngine.h"

#include <atomic>

// Collects RMS and peak of all blocks between two readings. The mixer writes, one other thread reads; neither waits.
class GroupMeter
{
public:
    // Null planes stand for silence. [mixer]
    void addBlock(const float *left, const float *right, std::size_t frames);
    // [audio]
    MeterReading read();
    void reset();

private:
    struct Side
    {
        double energy = 0;
        float peak = 0;
    };

    // Of the mixer.
    Side left_, right_;
    std::size_t frames_ = 0;

    // Left in the lower half, right in the upper one.
    std::atomic<std::uint64_t> rms_{0};
    std::atomic<std::uint64_t> peaks_{0};
    std::atomic<bool> read_{false}; // since then a new period begins
};
