#include "audio/engine/RealTimeOutput.h"

#include <utility>

namespace {

auto now()
{
    return std::chrono::steady_clock::now();
}

} // namespace

void RealTimeOutput::openDevice(int sampleRate)
{
    knownChoices_ = control_.choices();
    device_.choose(control_.choice());
    device_.open(sampleRate);
}

void RealTimeOutput::startDevice()
{
    device_.start();
    control_.tellOpened(device_.missing(), device_.latency());
}

AudioResult RealTimeOutput::open()
{
    if (wanted_ == HeardOutput::Device)
        return openFirst();
    paced_.start(mixer_, sampleRate_);
    return AudioResult::Ok;
}

AudioResult RealTimeOutput::openFirst()
{
    openDevice(0);
    const auto isOpened = device_.awaitOpening(DeviceOutput::patience);
    if (!isOpened.value_or(false)) {
        isNotAnswering_ = !isOpened;
        nextSearch_ = now() + searchInterval_;
        paced_.start(mixer_, sampleRate_);
        return isNotAnswering_ ? AudioResult::DeviceNotAnswering : AudioResult::NoDevice;
    }
    sampleRate_ = device_.sampleRate();
    startDevice();
    return AudioResult::Ok;
}

AudioResult RealTimeOutput::watch()
{
    if (wanted_ != HeardOutput::Device || isResting_)
        return AudioResult::Ok;
    if (device_.isOpening()) {
        endSearch();
    } else if (const bool isStalled = device_.isStalled(); isStalled || device_.lost()) {
        isNotAnswering_ = isStalled;
        loseDevice();
        return isStalled ? AudioResult::DeviceNotAnswering : AudioResult::DeviceLost;
    } else if (!device_.isOpen() && now() >= nextSearch_) {
        openDevice(sampleRate_);
    } else if (knownUnderruns_ != device_.underruns()) {
        tellUnderruns();
        if (device_.isOpen() && device_.grow())
            openAnew();
    } else if (device_.isOpen() && knownChoices_ != control_.choices()) {
        openAnew();
    }
    return AudioResult::Ok;
}

OutputState RealTimeOutput::state() const
{
    if (wanted_ == HeardOutput::Paced || isDeviceAway_ || device_.isOpen())
        return OutputState::Running;
    return isNotAnswering_ ? OutputState::NotAnswering : OutputState::NoDevice;
}

// The new device takes over at the engine's rate, in which all clocks are counted.
void RealTimeOutput::endSearch()
{
    const auto isOpened = device_.awaitOpening(std::chrono::milliseconds(0));
    if (!isOpened)
        return;
    nextSearch_ = now() + searchInterval_;
    isDeviceAway_ = false;
    isNotAnswering_ = false;
    if (!*isOpened)
        return;
    if (device_.sampleRate() != sampleRate_) // it answered late, and came with its own
        return device_.close();
    paced_.stop();
    startDevice();
}

void RealTimeOutput::loseDevice()
{
    nextSearch_ = now() + searchInterval_;
    device_.close(isNotAnswering_ ? DeviceOutput::Milliseconds(0) : DeviceOutput::patience);
    paced_.start(mixer_, sampleRate_);
}

void RealTimeOutput::tellUnderruns()
{
    const auto underruns = device_.underruns();
    control_.tellUnderruns(underruns - std::exchange(knownUnderruns_, underruns));
}

// With longer blocks, or another device; the clock runs on meanwhile.
void RealTimeOutput::openAnew()
{
    device_.close();
    isDeviceAway_ = true;
    paced_.start(mixer_, sampleRate_);
    openDevice(sampleRate_);
}

void RealTimeOutput::rest()
{
    isResting_ = true;
    isDeviceAway_ = isDeviceAway_ || device_.isOpen();
    paced_.stop();
    if (!device_.isOpening())
        device_.close();
}

void RealTimeOutput::wake()
{
    if (!std::exchange(isResting_, false))
        return;
    if (wanted_ == HeardOutput::Device && reopenDevice())
        startDevice();
    else
        paced_.start(mixer_, sampleRate_);
}

// At once where a device was. Where none was, it is searched for while the clock runs.
bool RealTimeOutput::reopenDevice()
{
    if (device_.isOpening() || !std::exchange(isDeviceAway_, false))
        return false;
    openDevice(sampleRate_);
    const auto isOpened = device_.awaitOpening(DeviceOutput::patience);
    isNotAnswering_ = !isOpened;
    return isOpened.value_or(false);
}

// Here, since nothing else of the engine needs the devices: a program that makes no such engine links none.
BuiltinEngine::BuiltinEngine(HeardOutput output, std::shared_ptr<OutputControl> control,
                             std::chrono::milliseconds searchInterval)
    : BuiltinEngine(output == HeardOutput::Device ? OutputState::NoDevice : OutputState::Running,
                    [output, control = std::move(control), searchInterval](Mixer &mixer) {
                        return std::make_unique<RealTimeOutput>(mixer, output, searchInterval, *control);
                    })
{
}
