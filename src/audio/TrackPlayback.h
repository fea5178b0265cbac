#pragma once

#include "assets/Instrument.h"
#include "audio/AudioEngine.h"
#include "audio/TempoMap.h"
#include "core/Track.h"

#include <QSet>

#include <optional>

class SampleCache;

// A note of a track with its place on the engine's clock.
struct PlacedNote
{
    int eventIndex = 0;
    NoteEntry entry; // without files when the instrument has nothing for the note
    float velocity = 1;
    DspClock start = 0;
    DspClock end = 0;     // where the velocity stops holding
    DspClock fadeEnd = 0; // where the note is silent

    bool soundsLike(const PlacedNote &other) const;
};

// One track on its way through the engine's clock: which events have been taken so far, and where they sound. Live
// playback and rendering both take their notes from here, so that they cannot differ. [audio] [render]
class TrackPlayback
{
public:
    // start: the clock of tick 0.
    TrackPlayback(const Track &track, const Instrument &instrument, int sampleRate, DspClock start);

    const Track &track() const { return track_; }
    DspClock start() const { return start_; }

    // For the notes that are still to be taken.
    void setInstrument(const Instrument &instrument) { instrument_ = instrument; }

    // Modulo 2^64: a track that was moved forward may have started before clock 0.
    DspClock clockAt(Ticks tick) const { return start_ + tempo_.samplesAt(tick); }
    DspClock lastEventClock() const;
    // 0 while the track has not begun.
    Ticks tickAt(DspClock clock) const;

    // The next note that starts at the horizon or before it; events that are none are passed.
    std::optional<PlacedNote> takeNote(Ticks horizon);
    // Whether every event has been taken.
    bool isExhausted() const { return nextEvent_ == track_.events().size(); }

    // Moves the track so that the tick sounds at the clock, and takes its events from there.
    void seek(Ticks tick, DspClock now);

    // Moves the track so that from the clock on it is where the other one is, and takes its events from there.
    void join(const TrackPlayback &other, DspClock from);

    // The first event, not among the taken ones, that sounds the same note at the same clocks as the other track's.
    std::optional<int> sameNote(const TrackPlayback &other, int eventIndex, const QSet<int> &taken) const;

private:
    PlacedNote placed(int eventIndex) const;

    Track track_;
    Instrument instrument_;
    TempoMap tempo_;
    int sampleRate_;
    DspClock start_;
    int nextEvent_ = 0;
};

// The voice that sounds a note; its sound is null where there is silence. [audio] [render]
VoiceSpec voiceFor(const PlacedNote &note, GroupId group, SampleCache &samples);

// Seconds from an instrument's description as whole output samples; 0 for what is no duration. [any]
DspClock fadeSamples(double seconds, int sampleRate);
