#include "audio/fmod/FmodSounds.h"

#include <limits>

fmodlib::Result FmodSounds::find(const Sound &sound, fmodlib::Sound *&made)
{
    if (const auto known = sounds_.find(sound); known != sounds_.end()) {
        made = known->second;
        return 0;
    }
    const auto result = makePart(*sound, 0, made);
    if (result == 0)
        sounds_.emplace(sound, made);
    return result;
}

// The same for mono and stereo sounds, since the library pans the two by different laws.
fmodlib::Result FmodSounds::makePart(const SoundData &sound, std::size_t firstFrame, fmodlib::Sound *&made)
{
    constexpr float monoShare = 0.70710678F;
    const auto frames = sound.frames() - firstFrame;
    if (frames > std::numeric_limits<unsigned>::max() / (2 * sizeof(float)))
        return fmodlib::tooManySamples;
    const bool isMono = sound.channels() == 1;
    const auto *const left = sound.plane(0) + firstFrame;
    const auto *const right = sound.plane(isMono ? 0 : 1) + firstFrame;
    const auto share = isMono ? monoShare : 1.0F;
    stereo_.resize(2 * frames);
    for (std::size_t i = 0; i < frames; ++i) {
        stereo_[2 * i] = left[i] * share;
        stereo_[2 * i + 1] = right[i] * share;
    }
    fmodlib::SoundInfo info;
    info.size = library_.soundInfoSize();
    info.length = unsigned(stereo_.size() * sizeof(float));
    info.channels = 2;
    info.frequency = sampleRate_;
    info.format = fmodlib::formatFloat;
    return library_.api().systemCreateSound(&system_, reinterpret_cast<const char *>(stereo_.data()),
                                            fmodlib::modeRawSample, &info, &made);
}

template<typename Condition>
fmodlib::Result FmodSounds::releaseWhere(Condition isToBeReleased)
{
    fmodlib::Result failure = 0;
    std::erase_if(sounds_, [&](const auto &entry) {
        if (!isToBeReleased(entry.first))
            return false;
        if (const auto result = release(entry.second); result != 0)
            failure = result;
        return true;
    });
    return failure;
}

fmodlib::Result FmodSounds::releaseUnused()
{
    return releaseWhere([](const Watched &sound) { return sound.expired(); });
}

fmodlib::Result FmodSounds::releaseAll()
{
    return releaseWhere([](const Watched &) { return true; });
}
