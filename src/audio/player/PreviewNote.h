#pragma once

#include "assets/Instrument.h"
#include "audio/AudioEngine.h"
#include "audio/ResultChecker.h"
#include "audio/samples/SampleFeed.h"

#include <optional>

// A note that a player sounds beside its tracks: at once, or as soon as its sample has been loaded. [audio]
class PreviewNote
{
public:
    // All must outlive it.
    PreviewNote(AudioEngine &engine, ResultChecker &checker, SampleFeed &feed)
        : engine_(engine), checker_(checker), feed_(feed)
    {
    }

    void play(const Instrument &instrument, quint32 pitch, float gain = 1);
    void stop(); // fades over the instrument's time
    void pass();

private:
    AudioEngine &engine_;
    ResultChecker &checker_;
    SampleFeed &feed_;
    std::optional<SampleNeed> awaited_;
    float gain_ = 1;
    bool isStopped_ = false; // while it was awaited: a short note
    std::optional<VoiceId> voice_;
    DspClock fade_ = 0; // output samples
};
