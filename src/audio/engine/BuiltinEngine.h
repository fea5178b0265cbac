#pragma once

#include "audio/AudioEngine.h"
#include "audio/OutputControl.h"

#include <chrono>
#include <filesystem>
#include <functional>
#include <memory>

// Where the built-in engine's samples go. All are stereo. What update() mixes, a block at a time, at 48 kHz:
enum class EngineOutput {
    WavFile, // 16 bit, saturated, no dither
    Silent,  // nowhere: for tests
};
// And what is mixed in real time:
enum class HeardOutput {
    Device, // a sound device at its own rate, mixed in its callback; paced while there is none
    Paced,  // 48 kHz, mixed by a thread and heard by nobody
};

class LiveOutput;
class Mixer;

// The program's own sample-accurate mixer behind AudioEngine. Blocks have 512 frames. Beyond AudioEngine it promises:
// - The same calls at the same clocks give the same samples, bit for bit, however the timeline is cut into blocks and
//   whether it is played or rendered.
// - With pan p a group multiplies the left side by volume * min(1, 1 - p) and the right one by volume * min(1, 1 + p);
//   a change of level glides over one block.
// - A mono sound goes to left and right at √½ each. Ratios other than 1 go through the live kernel.
// - stopGroup() fades over 240 frames.
// - A meter reads all blocks mixed since the previous reading.
// - A file is rendered in spans on all cores, and any number of voices sound in it at once.
class BuiltinEngine : public AudioEngine
{
public:
    static constexpr std::chrono::seconds usualSearchInterval{4};

    // Opens nothing yet. wavFile: the file that a WavFile output creates in initialize(); an existing one is replaced.
    // It has a valid header from the start and its sizes after release(). The caller removes or renames it. [any]
    explicit BuiltinEngine(EngineOutput output, std::filesystem::path wavFile = {});
    // control: where the sound device is chosen. searchInterval: between two looks for a device while there is none.
    // [any]
    explicit BuiltinEngine(HeardOutput output,
                           std::shared_ptr<OutputControl> control = std::make_shared<OutputControl>(),
                           std::chrono::milliseconds searchInterval = usualSearchInterval);
    ~BuiltinEngine() override;

    const char *name() const override;
    AudioResult initialize() override;
    AudioResult release() override;
    AudioResult update() override;
    OutputState outputState() const override;
    void rest() override; // closes the device, for a paused one still wakes a thread
    void wake() override;
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
    bool canMix() const override { return true; }
    AudioResult mix(Timeline &timeline, RenderHost &host, const MixedFrames &take) override;

    // The block that the last update() mixed, interleaved; empty for what is heard. [audio]
    std::span<const float> lastBlock() const;
    // How often the device ran dry, or the thread of a Paced output came too late for its queue of four blocks. [any]
    std::uint64_t underruns() const;

private:
    struct Parts;
    struct Session;
    using MakeLive = std::function<std::unique_ptr<LiveOutput>(Mixer &)>;
    BuiltinEngine(OutputState closed, MakeLive makeLive);
    AudioResult checkGroup(GroupId group) const; // Ok when it may be used
    std::unique_ptr<Parts> parts_;
};
