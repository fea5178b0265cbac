#include "audio/engine/SdlDevices.h"

#include "audio/engine/SoundDevices.h"

std::mutex &sdlMutex()
{
    static std::mutex mutex;
    return mutex;
}

SdlAudio::SdlAudio() : lock_(sdlMutex())
{
    SDL_SetHint(SDL_HINT_NO_SIGNAL_HANDLERS, "1"); // Ctrl+C is the program's
    SDL_SetMainReady();
    isThere_ = SDL_InitSubSystem(SDL_INIT_AUDIO) == 0;
}

SdlAudio::~SdlAudio()
{
    if (isThere_)
        SDL_QuitSubSystem(SDL_INIT_AUDIO);
}

std::vector<std::string> SdlAudio::deviceNames() const
{
    std::vector<std::string> names;
    const int count = isThere_ ? SDL_GetNumAudioDevices(0) : 0;
    for (int device = 0; device < count; ++device) {
        if (const auto *const name = SDL_GetAudioDeviceName(device, 0))
            names.emplace_back(name);
    }
    return names;
}

std::future<std::vector<std::string>> findSoundDevices()
{
    return beside([] { return SdlAudio().deviceNames(); });
}
