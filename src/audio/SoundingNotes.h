#pragma once

#include "audio/AudioEngine.h"

#include <QString>

#include <functional>
#include <vector>

// A note that has been given to the engine and whose end has not been told.
struct SoundingNote
{
    QString trackId;
    DspClock start = 0;
    DspClock end = 0; // without the fade
    int eventIndex = 0;
    VoiceId voice{};
    bool isPressed = false;
};

// Tells when the notes that were scheduled ahead begin and end. [audio]
class SoundingNotes
{
public:
    using Tell = std::function<void(const QString &trackId, int eventIndex)>;

    void add(const SoundingNote &note) { notes_.push_back(note); }

    // In the order in which the notes were added; one that has ended is forgotten. The two must not change the list.
    void tell(DspClock now, const Tell &pressed, const Tell &released);

    // Nothing more is told of the track's notes.
    void removeTrack(const QString &trackId);

    // Gives the track's notes, which are not pressed any more, to a function that may change them; those for which it
    // returns false are forgotten.
    void reviseTrack(const QString &trackId, const std::function<bool(SoundingNote &)> &revise);

private:
    std::vector<SoundingNote> notes_;
};
