#pragma once

#include "audio/engine/Mixer.h"
#include "audio/engine/UnderrunWatch.h"

// The default sound device, through SDL. Its callback asks the mixer for frames on a thread of SDL's. [audio,
// or another thread that it waits for]
class DeviceOutput
{
public:
    explicit DeviceOutput(Mixer &mixer) : mixer_(mixer) {}
    DeviceOutput(const DeviceOutput &) = delete;
    DeviceOutput &operator=(const DeviceOutput &) = delete;
    ~DeviceOutput() { close(); }

    // Opens the device without starting it; false when there is none. sampleRate: Hz, or 0 for the device's own, which
    // sampleRate() tells then.
    bool open(int sampleRate);
    // Frees what SDL keeps for the calling thread, which opened a device and is about to end.
    static void leaveThread();
    void start();
    // Waits for the callback to end.
    void close();
    bool isOpen() const { return device_ != 0; }
    // The device was unplugged or failed; it stays open, and silent, until close().
    bool lost() const;
    int sampleRate() const { return sampleRate_; }
    // How often the device had played all that it was given before it asked for more. [any]
    std::uint64_t underruns() const { return underruns_.load(std::memory_order_relaxed); }
    // A buffer of twice the size for the next open(); false when it is as large as it may be. It is 2048 frames at
    // first, and always less than the 100 ms that notes are given ahead of the mixer.
    bool grow();

private:
    static void fill(void *device, std::uint8_t *bytes, int size);
    void fill(float *stereo, std::size_t frames); // [mixer]

    Mixer &mixer_;
    std::uint32_t device_ = 0; // 0: closed
    int sampleRate_ = 0;
    std::uint16_t bufferFrames_ = 4 * mixerBlockFrames;
    UnderrunWatch watch_; // of the device that is open
    std::atomic<std::uint64_t> underruns_{0};
};
