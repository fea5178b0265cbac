#include "audio/engine/DeviceOutput.h"

#include "audio/engine/SdlDevices.h"
#include "audio/engine/UnderrunWatch.h"

#include <algorithm>
#include <bit>
#include <utility>

namespace {

constexpr int usualSampleRate = 48000;
constexpr std::size_t usualFrames = 4 * mixerBlockFrames;

SDL_AudioDeviceID openSdl(const char *name, const SDL_AudioSpec &wanted, SDL_AudioSpec &got)
{
    auto spec = wanted;
    const bool takesAnyRate = wanted.freq == 0;
    if (takesAnyRate)
        spec.freq = usualSampleRate;
    return SDL_OpenAudioDevice(name, 0, &spec, &got, takesAnyRate ? SDL_AUDIO_ALLOW_FREQUENCY_CHANGE : 0);
}

} // namespace

// What the callback reaches. It lives as long as SDL may call it, whoever has given it up.
class DeviceOutput::Device
{
public:
    Device(Mixer &mixer, std::shared_ptr<Count> underruns) : mixer_(mixer), underruns_(std::move(underruns)) {}

    bool open(int sampleRate, const std::string &name, std::size_t blockFrames);
    void start() { SDL_PauseAudioDevice(id_, 0); }
    // False when there is nothing to close.
    bool giveUp();
    bool close();
    bool lost() const { return SDL_GetAudioDeviceStatus(id_) == SDL_AUDIO_STOPPED; }
    int sampleRate() const { return sampleRate_; }
    std::size_t blockFrames() const { return blockFrames_; }
    bool isDefault() const { return isDefault_; }
    std::uint64_t asks() const { return asks_.load(std::memory_order_relaxed); }

private:
    enum class State { Opening, Idle, Mixing, GivenUp };

    static void fill(void *device, std::uint8_t *bytes, int size);
    void fill(float *stereo, std::size_t frames); // [mixer]
    bool change(State from, State to) { return state_.compare_exchange_strong(from, to); }

    Mixer &mixer_; // until it is given up
    std::shared_ptr<Count> underruns_;
    std::atomic<State> state_{State::Opening};
    SDL_AudioDeviceID id_ = 0;
    int sampleRate_ = 0;
    std::size_t blockFrames_ = 0;
    bool isDefault_ = false;
    UnderrunWatch watch_;
    Count asks_{0};
};

// SDL itself would take the default for a device that is gone, and say nothing.
bool DeviceOutput::Device::open(int sampleRate, const std::string &name, std::size_t blockFrames)
{
    {
        SdlAudio sdl;
        SDL_AudioSpec wanted{}, got{};
        wanted.freq = sampleRate;
        wanted.format = AUDIO_F32SYS;
        wanted.channels = 2;
        wanted.samples = std::uint16_t(blockFrames);
        wanted.callback = fill;
        wanted.userdata = this;
        const auto names = sdl.deviceNames();
        if (std::find(names.begin(), names.end(), name) != names.end())
            id_ = openSdl(name.c_str(), wanted, got);
        isDefault_ = id_ == 0;
        if (isDefault_ && sdl.isThere())
            id_ = openSdl(nullptr, wanted, got);
        if (id_ == 0)
            return false;
        sdl.keep();
        sampleRate_ = got.freq;
        blockFrames_ = got.samples;
    }
    if (change(State::Opening, State::Idle))
        return true;
    close(); // nobody wants it any more
    return false;
}

bool DeviceOutput::Device::giveUp()
{
    while (!change(State::Idle, State::GivenUp)) {
        if (change(State::Opening, State::GivenUp))
            return false;
        std::this_thread::yield(); // it is mixing
    }
    return true;
}

bool DeviceOutput::Device::close()
{
    const std::lock_guard lock(sdlMutex());
    SDL_CloseAudioDevice(id_);
    SDL_QuitSubSystem(SDL_INIT_AUDIO);
    return true;
}

void DeviceOutput::Device::fill(void *device, std::uint8_t *bytes, int size)
{
    static_cast<Device *>(device)->fill(reinterpret_cast<float *>(bytes), std::size_t(size) / (2 * sizeof(float)));
}

void DeviceOutput::Device::fill(float *stereo, std::size_t frames)
{
    if (!change(State::Idle, State::Mixing)) {
        std::fill_n(stereo, 2 * frames, 0.0F);
        return;
    }
    const auto nanoseconds = std::int64_t(frames) * 1'000'000'000 / sampleRate_;
    if (watch_.ask(UnderrunWatch::Clock::now(), std::chrono::nanoseconds(nanoseconds)))
        underruns_->fetch_add(1, std::memory_order_relaxed);
    mixer_.mix(stereo, frames);
    asks_.fetch_add(1, std::memory_order_relaxed);
    state_.store(State::Idle);
}

DeviceOutput::DeviceOutput(Mixer &mixer)
    : mixer_(mixer), underruns_(std::make_shared<Count>(0)), blockFrames_(usualFrames)
{
}

DeviceOutput::~DeviceOutput()
{
    close();
}

void DeviceOutput::open(int sampleRate)
{
    device_ = std::make_shared<Device>(mixer_, underruns_);
    opening_ = beside([device = device_, sampleRate, name = choice_.device, frames = blockFrames_] {
        return device->open(sampleRate, name, frames);
    });
}

void DeviceOutput::choose(const OutputChoice &choice)
{
    if (choice == choice_)
        return;
    choice_ = choice;
    blockFrames_ = choice.blockFrames == 0
                       ? usualFrames
                       : std::bit_floor(std::clamp(choice.blockFrames, std::size_t(128), std::size_t(4096)));
}

std::optional<bool> DeviceOutput::awaitOpening(Milliseconds timeout)
{
    if (opening_.wait_for(timeout) != std::future_status::ready)
        return std::nullopt;
    const bool isOpened = opening_.get();
    if (!isOpened)
        device_.reset();
    return isOpened;
}

void DeviceOutput::start()
{
    knownAsks_ = 0;
    lastAsk_ = std::chrono::steady_clock::now();
    device_->start();
}

void DeviceOutput::close(Milliseconds timeout)
{
    const auto device = std::exchange(device_, nullptr);
    opening_ = {};
    if (!device || !device->giveUp())
        return;
    const auto closing = beside([device] { return device->close(); });
    closing.wait_for(timeout);
}

bool DeviceOutput::lost() const
{
    return isOpen() && device_->lost();
}

bool DeviceOutput::isStalled()
{
    if (!isOpen())
        return false;
    const auto now = std::chrono::steady_clock::now();
    if (const auto asks = device_->asks(); asks != knownAsks_) {
        knownAsks_ = asks;
        lastAsk_ = now;
    }
    return now - lastAsk_ > patience;
}

int DeviceOutput::sampleRate() const
{
    return device_->sampleRate();
}

double DeviceOutput::latency() const
{
    return 1000.0 * double(device_->blockFrames()) / sampleRate();
}

std::string DeviceOutput::missing() const
{
    return device_->isDefault() ? choice_.device : std::string();
}

bool DeviceOutput::grow()
{
    constexpr std::size_t longest = 95; // ms
    const auto doubled = 2 * blockFrames_;
    if (choice_.blockFrames != 0 || doubled * 1000 > longest * std::size_t(sampleRate()))
        return false;
    blockFrames_ = doubled;
    return true;
}
