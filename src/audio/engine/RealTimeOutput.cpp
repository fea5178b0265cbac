#include "audio/engine/RealTimeOutput.h"

#include <utility>

namespace {

auto now()
{
    return std::chrono::steady_clock::now();
}

} // namespace

AudioResult RealTimeOutput::openDevice()
{
    wanted_ = Wanted::Device;
    if (!device_.open(0)) {
        nextSearch_ = now() + searchInterval_;
        paced_.start(mixer_, sampleRate_);
        return AudioResult::NoDevice;
    }
    sampleRate_ = device_.sampleRate();
    device_.start();
    return AudioResult::Ok;
}

void RealTimeOutput::openPaced()
{
    wanted_ = Wanted::Paced;
    paced_.start(mixer_, sampleRate_);
}

AudioResult RealTimeOutput::watch()
{
    if (wanted_ != Wanted::Device || isResting_)
        return AudioResult::Ok;
    if (search_.valid()) {
        endSearch();
    } else if (device_.lost()) {
        loseDevice();
        return AudioResult::DeviceLost;
    } else if (!device_.isOpen() && now() >= nextSearch_) {
        beginSearch();
    } else if (knownUnderruns_ != device_.underruns()) {
        growQueue();
    }
    return AudioResult::Ok;
}

// The new device takes over at the engine's rate, in which all clocks are counted.
void RealTimeOutput::beginSearch()
{
    search_ = std::async(std::launch::async, [this] {
        const bool isFound = device_.open(sampleRate_);
        DeviceOutput::leaveThread();
        return isFound;
    });
}

void RealTimeOutput::endSearch()
{
    nextSearch_ = now() + searchInterval_;
    if (search_.wait_for(std::chrono::seconds(0)) != std::future_status::ready)
        return;
    isDeviceAway_ = false;
    if (search_.get()) {
        paced_.stop();
        device_.start();
    }
}

void RealTimeOutput::loseDevice()
{
    device_.close();
    nextSearch_ = now() + searchInterval_;
    paced_.start(mixer_, sampleRate_);
}

// The device is opened again with a longer queue; the clock runs on meanwhile.
void RealTimeOutput::growQueue()
{
    knownUnderruns_ = device_.underruns();
    if (!device_.grow())
        return;
    device_.close();
    isDeviceAway_ = true;
    paced_.start(mixer_, sampleRate_);
    beginSearch();
}

void RealTimeOutput::rest()
{
    isResting_ = true;
    isDeviceAway_ = hasDevice();
    paced_.stop();
    if (!search_.valid())
        device_.close();
}

void RealTimeOutput::wake()
{
    if (!std::exchange(isResting_, false) || wanted_ == Wanted::Nothing)
        return;
    if (wanted_ == Wanted::Device && reopenDevice())
        device_.start();
    else
        paced_.start(mixer_, sampleRate_);
}

// At once where a device was. Where none was, it is searched for while the clock runs.
bool RealTimeOutput::reopenDevice()
{
    return !search_.valid() && std::exchange(isDeviceAway_, false) && device_.open(sampleRate_);
}
