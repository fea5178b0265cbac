#pragma once

#include "audio/fmod/FmodLibrary.h"
#include "audio/sound/Sound.h"

#include <map>
#include <memory>
#include <vector>

// The sounds that the library has copies of, as stereo samples at the engine's rate. One stays as long as anybody else
// holds it, so that what plays again and again is copied once. [audio]
class FmodSounds
{
public:
    // Both must outlive it; all sounds are released with the system.
    FmodSounds(const FmodLibrary &library, fmodlib::System &system, int sampleRate)
        : library_(library), system_(system), sampleRate_(sampleRate)
    {
    }

    fmodlib::Result find(const Sound &sound, fmodlib::Sound *&made);
    // What is left of it from a frame on; the caller releases it.
    fmodlib::Result makePart(const SoundData &sound, std::size_t firstFrame, fmodlib::Sound *&made);
    fmodlib::Result release(fmodlib::Sound *sound) const { return library_.api().soundRelease(sound); }
    // What nobody holds any more; all. The last failure.
    fmodlib::Result releaseUnused();
    fmodlib::Result releaseAll();

private:
    using Watched = std::weak_ptr<const SoundData>;

    template<typename Condition>
    fmodlib::Result releaseWhere(Condition isToBeReleased);

    const FmodLibrary &library_;
    fmodlib::System &system_;
    int sampleRate_;
    std::map<Watched, fmodlib::Sound *, std::owner_less<Watched>> sounds_;
    std::vector<float> stereo_; // of the sound that is being copied
};
