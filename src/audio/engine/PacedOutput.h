#pragma once

#include "audio/engine/Mixer.h"

#include <thread>

// Mixes in real time, for nobody: it stands in where there is no sound device, so that playback still runs. Its queue
// holds four blocks, as the buffer of a device. [audio]
class PacedOutput
{
public:
    ~PacedOutput() { stop(); }

    void start(Mixer &mixer, int sampleRate);
    // Waits for the block that is being mixed.
    void stop();
    bool running() const { return thread_.joinable(); }
    std::uint64_t underruns() const { return underruns_.load(std::memory_order_relaxed); } // [any]

private:
    void run(Mixer &mixer, int sampleRate);

    std::thread thread_;
    std::atomic<bool> stopping_{false};
    std::atomic<std::uint64_t> underruns_{0};
};
