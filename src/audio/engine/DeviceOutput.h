#pragma once

#include "audio/engine/Mixer.h"

#include <chrono>
#include <future>
#include <memory>
#include <optional>

// The default sound device, through SDL. Its callback asks the mixer for frames on a thread of SDL's. Opening and
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

    // Begins to open the device. sampleRate: Hz, or 0 for the device's own.
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
    int sampleRate() const; // of an open one
    // How often the device had played all that it was given before it asked for more. [any]
    std::uint64_t underruns() const { return underruns_->load(std::memory_order_relaxed); }
    // A buffer of twice the size for the next open(); false when it is as large as it may be. It is 2048 frames at
    // first, and always less than the 100 ms that notes are given ahead of the mixer.
    bool grow();

private:
    class Device;
    using Count = std::atomic<std::uint64_t>;
    using Time = std::chrono::steady_clock::time_point;

    Mixer &mixer_;
    std::shared_ptr<Count> underruns_;
    std::shared_ptr<Device> device_; // shared with what opens and closes it
    std::future<bool> opening_;
    std::uint16_t bufferFrames_ = 4 * mixerBlockFrames;
    std::uint64_t knownAsks_ = 0;
    Time lastAsk_;
};
