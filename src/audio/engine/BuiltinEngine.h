#pragma once

#include "audio/AudioEngine.h"

#include <filesystem>
#include <memory>

// Where the built-in engine's samples go. All are stereo.
enum class EngineOutput {
    Device,  // the default sound device at its own rate, mixed in its callback; paced while there is none
    WavFile, // 48 kHz, 16 bit, saturated, no dither; update() mixes and writes one block
    Silent,  // 48 kHz; the clock moves only in update(): for tests
    Paced,   // 48 kHz, mixed in real time by a thread and heard by nobody
};

// The program's own sample-accurate mixer behind AudioEngine. Blocks have 512 frames; see AudioEngine for the contract.
class BuiltinEngine : public AudioEngine
{
public:
    // Opens nothing yet. wavFile: the file that a WavFile output creates in initialize(); an existing one is replaced.
    // It has a valid header from the start and its sizes after release(). The caller removes or renames it. [any]
    explicit BuiltinEngine(EngineOutput output, std::filesystem::path wavFile = {});
    ~BuiltinEngine() override;

    const char *name() const override;
    const char *errorText(AudioResult result) const override;
    AudioResult initialize() override;
    AudioResult release() override;
    AudioResult update() override;
    OutputState outputState() const override;
    int sampleRate() const override;
    std::size_t blockFrames() const override;
    DspClock clock() const override;
    std::size_t playingVoices() const override;
    AudioResult createGroup(GroupId &group) override;
    AudioResult setGroupLevel(GroupId group, GroupLevel level) override;
    AudioResult stopGroup(GroupId group) override;
    AudioResult releaseGroup(GroupId group) override;
    MeterReading groupMeter(GroupId group) override;
    AudioResult play(const VoiceSpec &spec, VoiceId &voice) override;
    AudioResult fadeOut(VoiceId voice, std::size_t frames) override;
    bool isPlaying(VoiceId voice) const override;
    AudioResult decode(std::span<const std::byte> bytes, Sound &sound) const override;
    AudioResult resample(const SoundData &source, double ratio, std::size_t maxFrames, Sound &sound) const override;
    AudioResult mixSpan(const Mix &mix, DspClock from, std::span<float> stereo) const override;
    AudioResult write(std::span<const float> stereo) override;

    // The block that the last update() mixed, interleaved; empty for Device and Paced. [audio]
    std::span<const float> lastBlock() const;
    // How often the thread of a Paced output came too late for its queue of four blocks. [any]
    std::uint64_t underruns() const;

private:
    struct Parts;
    struct Session;
    AudioResult checkGroup(GroupId group) const; // Ok when it may be used
    std::unique_ptr<Parts> parts_;
};
