#pragma once

#include "audio/AudioEngine.h"
#include "audio/fmod/FmodLibrary.h"

#include <filesystem>
#include <memory>

// Where the library's samples go.
enum class FmodOutput {
    Device,  // the library's own choice, at its own rate; no device is no failure
    WavFile, // 48 kHz, 16 bit, stereo: the library's writer; update() mixes and writes one block
};

// AudioEngine by the user's own FMOD library, which mixes by its own rules: how it pans between the middle and the
// sides, interpolates at ratios other than 1 and glides from one level to another is up to it. What fails in the
// library is a LibraryError with the library's number, and the rest goes on: a note is lost, a group's level stays.
// Failures of what no operation tells of come with the next update().
class FmodEngine : public AudioEngine
{
public:
    // Opens nothing yet. wavFile: of a WavFile output; an existing file is replaced. [any]
    explicit FmodEngine(std::shared_ptr<const FmodLibrary> library, FmodOutput output,
                        std::filesystem::path wavFile = {});
    ~FmodEngine() override;

    // Opens the output ahead of initialize(), which then only starts the clock: for who would take another engine when
    // this one fails. [audio]
    AudioResult prepare();

    const char *name() const override;
    const char *errorText(AudioResult result) const override;
    AudioResult initialize() override;
    AudioResult release() override;
    AudioResult update() override;
    OutputState outputState() const override;
    void wake() override;
    int sampleRate() const override;
    std::size_t blockFrames() const override;
    DspClock clock() const override; // as of the latest update() or wake()
    std::size_t playingVoices() const override;
    AudioResult createGroup(GroupId &group) override;
    AudioResult setGroupLevel(GroupId group, GroupLevel level) override;
    AudioResult stopGroup(GroupId group) override;
    AudioResult releaseGroup(GroupId group) override;
    MeterReading groupMeter(GroupId group) override;
    AudioResult play(const VoiceSpec &spec, VoiceId &voice) override;
    AudioResult fadeOut(VoiceId voice, std::size_t frames) override;
    bool isPlaying(VoiceId voice) const override;

private:
    struct Session;
    AudioResult checkGroup(GroupId group) const;
    struct Parts;
    std::unique_ptr<Parts> parts_;
};
