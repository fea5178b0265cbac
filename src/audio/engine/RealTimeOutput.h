#pragma once

#include "audio/AudioEngine.h"
#include "audio/engine/DeviceOutput.h"
#include "audio/engine/PacedOutput.h"

#include <chrono>

// What drives the mixer of an engine that is heard: the sound device or, while there is none or it does not answer, the
// paced output, so that playback runs on. [audio]
class RealTimeOutput
{
public:
    static constexpr int ownSampleRate = 48000; // where no device has one

    // searchInterval: between two looks for a device while there is none. control: which one; it outlives this.
    RealTimeOutput(Mixer &mixer, std::chrono::milliseconds searchInterval, OutputControl &control)
        : mixer_(mixer), searchInterval_(searchInterval), control_(control), device_(mixer)
    {
    }

    AudioResult openDevice(); // Ok, NoDevice or DeviceNotAnswering
    void openPaced();         // no device is wanted
    // As AudioEngine::update(), outputState(), rest() and wake(). An output that was never opened does nothing.
    AudioResult watch();
    OutputState state() const;
    void rest();
    void wake();

    int sampleRate() const { return sampleRate_; }
    std::uint64_t underruns() const { return paced_.underruns() + device_.underruns(); } // [any]

private:
    using Time = std::chrono::steady_clock::time_point;
    enum class Wanted { Nothing, Paced, Device };

    void open(int sampleRate);
    void startDevice();
    void endSearch();
    void loseDevice();
    void tellUnderruns();
    void openAnew();
    bool reopenDevice();

    Mixer &mixer_;
    std::chrono::milliseconds searchInterval_;
    OutputControl &control_;
    unsigned knownChoices_ = 0;
    Wanted wanted_ = Wanted::Nothing;
    int sampleRate_ = ownSampleRate;
    bool isResting_ = false;
    bool isDeviceAway_ = false;        // closed on purpose, it will be back
    bool isNotAnswering_ = false;      // when it was asked last
    std::uint64_t knownUnderruns_ = 0; // of the device
    Time nextSearch_;
    PacedOutput paced_; // the outputs come last, so that their threads end first
    DeviceOutput device_;
};
