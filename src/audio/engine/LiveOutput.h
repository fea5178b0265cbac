#pragma once

#include "audio/AudioEngine.h"

// What drives the mixer of an engine that is heard. An engine that only writes or counts has none, and its program
// needs no library of sound devices. [audio]
class LiveOutput
{
public:
    static constexpr int ownSampleRate = 48000; // where no device has one

    LiveOutput() = default;
    LiveOutput(const LiveOutput &) = delete;
    LiveOutput &operator=(const LiveOutput &) = delete;
    virtual ~LiveOutput() = default;

    virtual AudioResult open() = 0; // Ok, NoDevice or DeviceNotAnswering; the mixer is driven from then on
    // As AudioEngine::update(), outputState(), rest() and wake().
    virtual AudioResult watch() = 0;
    virtual OutputState state() const = 0;
    virtual void rest() = 0;
    virtual void wake() = 0;
    virtual int sampleRate() const = 0;
    virtual std::uint64_t underruns() const = 0; // [any]
};
