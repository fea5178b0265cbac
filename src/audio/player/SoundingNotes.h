#pragma once

#include "audio/TrackPlayback.h"

#include <QString>

#include <functional>
#include <vector>

// A note that has been given to the engine and whose end has not been told.
struct SoundingNote
{
    QString trackId;
    DspClock start = 0;
    DspClock end = 0; // without the fade
    EventInPass event;
    VoiceId voice{};
    bool isPressed = false;
};

// Tells when the notes that were scheduled ahead begin and end. [audio]
class SoundingNotes
{
public:
    using Tell = std::function<void(const QString &trackId, int eventIndex)>;

    bool isEmpty() const { return notes_.empty(); }
    void add(const SoundingNote &note) { notes_.push_back(note); }

    // In the order in which the notes were added; one that has ended is forgotten. The two must not change the list.
    void tell(DspClock now, const Tell &pressed, const Tell &released);

    // Nothing more is told of the track's notes.
    void removeTrack(const QString &trackId);
    // They end now.
    void releaseTrack(const QString &trackId, const Tell &released);

    // What becomes of notes that have begun and that another version of their track has not.
    enum class Begun { End, Stay };

    // Another version of the track takes its place at the clock. Notes that it has not are given to `end` and
    // forgotten; of the others, pressed or not, it is told anew when they are pressed. Returns their events in the new
    // version.
    QVector<EventInPass> handOver(const QString &trackId, const TrackPlayback &before, const TrackPlayback &after,
                                  Begun begun, DspClock now, const std::function<void(VoiceId)> &end);

private:
    std::vector<SoundingNote> notes_;
};
