#include "audio/engine/DeviceOutput.h"

#include "audio/engine/UnderrunWatch.h"

#include <SDL.h>
#include <algorithm>
#include <functional>
#include <mutex>
#include <thread>
#include <utility>

namespace {

constexpr int usualSampleRate = 48000;

// SDL's start, end, opening and closing are not made for several threads; two engines may have one each.
std::mutex &sdlMutex()
{
    static std::mutex mutex;
    return mutex;
}

// On a thread that nobody waits for.
std::future<bool> beside(std::function<bool()> deed)
{
    std::packaged_task<bool()> task([deed = std::move(deed)] {
        const bool isDone = deed();
        SDL_TLSCleanup(); // what SDL keeps for this thread
        return isDone;
    });
    auto result = task.get_future();
    std::thread(std::move(task)).detach();
    return result;
}

} // namespace

// What the callback reaches. It lives as long as SDL may call it, whoever has given it up.
class DeviceOutput::Device
{
public:
    Device(Mixer &mixer, std::shared_ptr<Count> underruns) : mixer_(mixer), underruns_(std::move(underruns)) {}

    bool open(int sampleRate, std::uint16_t bufferFrames);
    void start() { SDL_PauseAudioDevice(id_, 0); }
    // False when there is nothing to close.
    bool giveUp();
    bool close();
    bool lost() const { return SDL_GetAudioDeviceStatus(id_) == SDL_AUDIO_STOPPED; }
    int sampleRate() const { return sampleRate_; }
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
    UnderrunWatch watch_;
    Count asks_{0};
};

bool DeviceOutput::Device::open(int sampleRate, std::uint16_t bufferFrames)
{
    {
        const std::lock_guard lock(sdlMutex());
        SDL_SetHint(SDL_HINT_NO_SIGNAL_HANDLERS, "1"); // Ctrl+C is the program's
        SDL_SetMainReady();
        if (SDL_InitSubSystem(SDL_INIT_AUDIO) != 0)
            return false;
        SDL_AudioSpec wanted{}, got{};
        wanted.freq = sampleRate > 0 ? sampleRate : usualSampleRate;
        wanted.format = AUDIO_F32SYS;
        wanted.channels = 2;
        wanted.samples = bufferFrames;
        wanted.callback = fill;
        wanted.userdata = this;
        id_ = SDL_OpenAudioDevice(nullptr, 0, &wanted, &got, sampleRate > 0 ? 0 : SDL_AUDIO_ALLOW_FREQUENCY_CHANGE);
        if (id_ == 0)
            SDL_QuitSubSystem(SDL_INIT_AUDIO);
        sampleRate_ = got.freq;
    }
    if (id_ == 0 || change(State::Opening, State::Idle))
        return id_ != 0;
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

DeviceOutput::DeviceOutput(Mixer &mixer) : mixer_(mixer), underruns_(std::make_shared<Count>(0)) {}

DeviceOutput::~DeviceOutput()
{
    close();
}

void DeviceOutput::open(int sampleRate)
{
    device_ = std::make_shared<Device>(mixer_, underruns_);
    opening_ =
        beside([device = device_, sampleRate, frames = bufferFrames_] { return device->open(sampleRate, frames); });
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

bool DeviceOutput::grow()
{
    constexpr int longest = 95; // ms
    const auto doubled = 2 * int(bufferFrames_);
    if (doubled * 1000 > longest * sampleRate())
        return false;
    bufferFrames_ = std::uint16_t(doubled);
    return true;
}
