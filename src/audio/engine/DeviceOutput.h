#pragma once

#include "audio/engine/Mixer.h"

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

private:
    static void fill(void *mixer, std::uint8_t *bytes, int size);

    Mixer &mixer_;
    std::uint32_t device_ = 0; // 0: closed
    int sampleRate_ = 0;
};
