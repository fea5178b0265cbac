#pragma once

#include "audio/engine/BuiltinEngine.h"
#include "audio/engine/DeviceOutput.h"
#include "audio/engine/LiveOutput.h"
#include "audio/engine/PacedOutput.h"

#include <chrono>

// The sound device or, while there is none or it does not answer, the paced output, so that playback runs on. [audio]
class RealTimeOutput : public LiveOutput
{
public:
    // searchInterval: between two looks for a device while there is none. control: which one; it outlives this.
    RealTimeOutput(Mixer &mixer, HeardOutput wanted, std::chrono::milliseconds searchInterval, OutputControl &control)
        : mixer_(mixer), wanted_(wanted), searchInterval_(searchInterval), control_(control), device_(mixer)
    {
    }

    AudioResult open() override;
    AudioResult watch() override;
    OutputState state() const override;
    void rest() override;
    void wake() override;

    int sampleRate() const override { return sampleRate_; }
    std::uint64_t underruns() const override { return paced_.underruns() + device_.underruns(); }

private:
    using Time = std::chrono::steady_clock::time_point;

    AudioResult openFirst();
    void openDevice(int sampleRate);
    void startDevice();
    void endSearch();
    void loseDevice();
    void tellUnderruns();
    void openAnew();
    bool reopenDevice();

    Mixer &mixer_;
    const HeardOutput wanted_;
    std::chrono::milliseconds searchInterval_;
    OutputControl &control_;
    unsigned knownChoices_ = 0;
    int sampleRate_ = ownSampleRate;
    bool isResting_ = false;
    bool isDeviceAway_ = false;        // closed on purpose, it will be back
    bool isNotAnswering_ = false;      // when it was asked last
    std::uint64_t knownUnderruns_ = 0; // of the device
    Time nextSearch_;
    PacedOutput paced_; // the outputs come last, so that their threads end first
    DeviceOutput device_;
};
