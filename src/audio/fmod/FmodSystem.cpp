#include "audio/fmod/FmodSystem.h"

#include "audio/AudioEngine.h"
#include "audio/fmod/FmodEngine.h"

#include <utility>

FmodSystem::~FmodSystem()
{
    close();
}

AudioResult FmodSystem::open(FmodOutput output, const std::filesystem::path &wavFile)
{
    auto result = library_.createSystem(&system_);
    if (result != 0)
        system_ = nullptr;
    if (result == 0)
        result = init(output, wavFile);
    if (result == fmodlib::outputInit && output == FmodOutput::WavFile)
        return AudioResult::CannotWrite;
    if (result == 0)
        result = library_.api().systemGetMasterChannelGroup(system_, &master_);
    if (result == 0)
        result = readFormat(output);
    if (result != 0)
        return failures_.told(result);
    return hasDevice_ ? AudioResult::Ok : AudioResult::NoDevice;
}

fmodlib::Result FmodSystem::init(FmodOutput output, const std::filesystem::path &wavFile)
{
    const auto &api = library_.api();
    failures_.note(api.systemSetSoftwareChannels(system_, int(maxVoices)));
    if (output == FmodOutput::Device) {
        auto result = api.systemInit(system_, int(maxVoices), fmodlib::initNormal, nullptr);
        hasDevice_ = result != fmodlib::noDrivers;
        if (!hasDevice_ && (result = api.systemSetOutput(system_, fmodlib::outputNoSound)) == 0)
            result = api.systemInit(system_, int(maxVoices), fmodlib::initNormal, nullptr);
        return result;
    }
    if (const auto result = api.systemSetSoftwareFormat(system_, sampleRate_, fmodlib::speakersStereo, 0); result != 0)
        return result;
    if (const auto result = api.systemSetOutput(system_, fmodlib::outputWavWriterNrt); result != 0)
        return result;
    std::error_code isNotThere;
    std::filesystem::resize_file(wavFile, 0, isNotThere); // the library would leave what is behind its own
    auto name = wavFile.generic_string();
    return api.systemInit(system_, int(maxVoices), fmodlib::initStreamFromUpdate, name.data());
}

// The rate of a file, and the usual block, are known without being told.
fmodlib::Result FmodSystem::readFormat(FmodOutput output)
{
    const auto &api = library_.api();
    unsigned frames = 0;
    int count = 0, rate = 0, speakers = 0, rawSpeakers = 0;
    if (failures_.note(api.systemGetDspBufferSize(system_, &frames, &count)) && frames > 0)
        blockFrames_ = frames;
    const auto result = api.systemGetSoftwareFormat(system_, &rate, &speakers, &rawSpeakers);
    if (result == 0 && rate > 0)
        sampleRate_ = rate;
    if (output == FmodOutput::WavFile)
        return failures_.note(result), 0;
    return result;
}

AudioResult FmodSystem::close()
{
    auto *const system = std::exchange(system_, nullptr);
    return system != nullptr ? failures_.told(library_.releaseSystem(system)) : AudioResult::Ok;
}
