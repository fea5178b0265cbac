#pragma once

#include "audio/fmod/FmodFailures.h"
#include "audio/fmod/FmodLibrary.h"

#include <filesystem>
#include <memory>

enum class FmodOutput;

// One system of the library, opened for an output: what every engine has of its own. [audio]
class FmodSystem
{
public:
    static constexpr int usualSampleRate = 48000;
    static constexpr std::size_t usualBlockFrames = 1024;

    // All must outlive it.
    FmodSystem(const FmodLibrary &library, FmodFailures &failures) : library_(library), failures_(failures) {}
    FmodSystem(const FmodSystem &) = delete;
    FmodSystem &operator=(const FmodSystem &) = delete;
    ~FmodSystem();

    // Once. NoDevice is a warning, as in AudioEngine.
    AudioResult open(FmodOutput output, const std::filesystem::path &wavFile);
    AudioResult close();

    fmodlib::System &handle() const { return *system_; }
    fmodlib::ChannelGroup &master() const { return *master_; }
    bool hasDevice() const { return hasDevice_; }
    int sampleRate() const { return sampleRate_; }
    std::size_t blockFrames() const { return blockFrames_; }

private:
    fmodlib::Result init(FmodOutput output, const std::filesystem::path &wavFile);
    fmodlib::Result readFormat(FmodOutput output);

    const FmodLibrary &library_;
    FmodFailures &failures_;
    fmodlib::System *system_ = nullptr;
    fmodlib::ChannelGroup *master_ = nullptr;
    bool hasDevice_ = true;
    int sampleRate_ = usualSampleRate;
    std::size_t blockFrames_ = usualBlockFrames;
};
