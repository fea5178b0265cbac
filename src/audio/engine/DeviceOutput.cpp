#include "audio/engine/DeviceOutput.h"

#include <SDL.h>
#include <mutex>

namespace {

constexpr int usualSampleRate = 48000;

// SDL's start, end, opening and closing are not made for several threads; two engines may have one each.
std::mutex &sdlMutex()
{
    static std::mutex mutex;
    return mutex;
}

} // namespace

bool DeviceOutput::open(int sampleRate)
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
    wanted.samples = bufferFrames_;
    wanted.callback = fill;
    wanted.userdata = this;
    watch_ = {};
    device_ = SDL_OpenAudioDevice(nullptr, 0, &wanted, &got, sampleRate > 0 ? 0 : SDL_AUDIO_ALLOW_FREQUENCY_CHANGE);
    if (device_ == 0)
        SDL_QuitSubSystem(SDL_INIT_AUDIO);
    sampleRate_ = got.freq;
    return device_ != 0;
}

void DeviceOutput::leaveThread()
{
    SDL_TLSCleanup();
}

void DeviceOutput::start()
{
    SDL_PauseAudioDevice(device_, 0);
}

void DeviceOutput::close()
{
    if (device_ == 0)
        return;
    const std::lock_guard lock(sdlMutex());
    SDL_CloseAudioDevice(device_);
    SDL_QuitSubSystem(SDL_INIT_AUDIO);
    device_ = 0;
}

bool DeviceOutput::lost() const
{
    return device_ != 0 && SDL_GetAudioDeviceStatus(device_) == SDL_AUDIO_STOPPED;
}

bool DeviceOutput::grow()
{
    constexpr int longest = 95; // ms
    const auto doubled = 2 * int(bufferFrames_);
    if (doubled * 1000 > longest * sampleRate_)
        return false;
    bufferFrames_ = std::uint16_t(doubled);
    return true;
}

void DeviceOutput::fill(void *device, std::uint8_t *bytes, int size)
{
    static_cast<DeviceOutput *>(device)->fill(reinterpret_cast<float *>(bytes),
                                              std::size_t(size) / (2 * sizeof(float)));
}

void DeviceOutput::fill(float *stereo, std::size_t frames)
{
    const auto nanoseconds = std::int64_t(frames) * 1'000'000'000 / sampleRate_;
    if (watch_.ask(UnderrunWatch::Clock::now(), std::chrono::nanoseconds(nanoseconds)))
        underruns_.fetch_add(1, std::memory_order_relaxed);
    mixer_.mix(stereo, frames);
}
