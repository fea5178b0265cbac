#pragma once

#include "audio/player/PreviewNote.h"

#include <map>

// What is played on a keyboard: each key sounds as long as it is held, or as long as its sample does. [audio]
class LiveKeys
{
public:
    // All must outlive it.
    LiveKeys(AudioEngine &engine, ResultChecker &checker, SampleFeed &feed)
        : engine_(engine), checker_(checker), feed_(feed)
    {
    }

    void press(const Instrument &instrument, quint8 pitch, float gain);
    void release(quint8 pitch);
    void pass();

private:
    AudioEngine &engine_;
    ResultChecker &checker_;
    SampleFeed &feed_;
    std::map<quint8, PreviewNote> keys_; // all that were ever pressed
};
