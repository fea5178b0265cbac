#pragma once

#include "audio/engine/DeviceOutput.h"
#include "audio/engine/PacedOutput.h"

#include <chrono>
#include <future>

// What drives the mixer of an engine that is heard: the sound device or, while there is none, the paced output, so that
// playback runs on. [audio]
class RealTimeOutput
{
public:
    static constexpr int ownSampleRate = 48000; // where no device has one

    // searchInterval: between two looks for a device while there is none.
    RealTimeOutput(Mixer &mixer, std::chrono::milliseconds searchInterval)
        : mixer_(mixer), searchInterval_(searchInterval), device_(mixer)
    {
    }

    AudioResult openDevice(); // Ok or NoDevice
    void openPaced();         // no device is wanted
    // As AudioEngine::update(), rest() and wake(). An output that was never opened does nothing.
    AudioResult watch();
    void rest();
    void wake();

    // A device is there, or was closed on purpose and will be back.
    bool hasDevice() const { return isDeviceAway_ || (!search_.valid() && device_.isOpen()); }
    int sampleRate() const { return sampleRate_; }
    std::uint64_t underruns() const { return paced_.underruns() + device_.underruns(); } // [any]

private:
    using Time = std::chrono::steady_clock::time_point;
    enum class Wanted { Nothing, Paced, Device };

    void beginSearch();
    void endSearch();
    void loseDevice();
    void growQueue();
    bool reopenDevice();

    Mixer &mixer_;
    std::chrono::milliseconds searchInterval_;
    Wanted wanted_ = Wanted::Nothing;
    int sampleRate_ = ownSampleRate;
    bool isResting_ = false;
    bool isDeviceAway_ = false;
    std::uint64_t knownUnderruns_ = 0; // of the device
    Time nextSearch_;
    PacedOutput paced_; // the outputs come last, so that their threads end first
    DeviceOutput device_;
    std::future<bool> search_; // for another device, which takes a tenth of a second; device_ is its own meanwhile
};
