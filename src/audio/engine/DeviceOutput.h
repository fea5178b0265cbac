#pragma once

#include "audio/OutputControl.h"
#include "audio/engine/Mixer.h"

#include <chrono>
#include <future>
#include <memory>
#include <optional>

// A sound device, through SDL. Its callback asks the mixer for frames on a thread of SDL's. Opening and
// closing take as long as the sound server likes, so they go on beside the caller, who waits for a moment at most.
// [audio]
class DeviceOutput
{
public:
    using Milliseconds = std::chrono::milliseconds;
    static constexpr Milliseconds patience{500}; // with a server that does not answer

    explicit DeviceOutput(Mixer &mixer);
    DeviceOutput(const DeviceOutput &) = delete;
    DeviceOutput &operator=(const DeviceOutput &) = delete;
    ~DeviceOutput();

    // For the next open(). Of the default device at first. blockFrames: made a power of two from 128 to 4096.
    void choose(const OutputChoice &choice);
    // Begins to open the device, or the default one where that is not there. sampleRate: Hz, or 0 for the device's own.
    void open(int sampleRate);
    bool isOpening() const { return opening_.valid(); }
    // Whether it could be opened; none while that is not known.
    std::optional<bool> awaitOpening(Milliseconds timeout);
    // Of an open device, that it plays.
    void start();
    // The mixer is asked no more. Waits for the device for so long, and leaves it alone then.
    void close(Milliseconds timeout = patience);
    bool isOpen() const { return device_ && !isOpening(); }
    // The device was unplugged or failed; it stays open, and silent, until close().
    bool lost() const;
    // One that was started has not asked for frames for so long that its server must have stopped.
    bool isStalled();
    // Of an open one.
    int sampleRate() const;
    double latency() const;      // milliseconds
    std::string missing() const; // the chosen device, when it is not this one
    // How often the device had played all that it was given before it asked for more. [any]
    std::uint64_t underruns() const { return underruns_->load(std::memory_order_relaxed); }
    // A block of twice the size for the next open(); false when its size was chosen, or is as large as it may be. It is
    // 2048 frames at first, and always less than the 100 ms that notes are given ahead of the mixer.
    bool grow();

private:
    class Device;
    using Count = std::atomic<std::uint64_t>;
    using Time = std::chrono::steady_clock::time_point;

    Mixer &mixer_;
    std::shared_ptr<Count> underruns_;
    std::shared_ptr<Device> device_; // shared with what opens and closes it
    std::future<bool> opening_;
    OutputChoice choice_;
    std::size_t blockFrames_;
    std::uint64_t knownAsks_ = 0;
    Time lastAsk_;
};
