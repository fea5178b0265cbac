#pragma once

#include "assets/Instrument.h"
#include "audio/AudioEngine.h"
#include "audio/TempoMap.h"
#include "core/Track.h"

#include <QVector>

#include <optional>
#include <vector>

class SampleCache;

// An event of a track, in one of the passes of a loop (from 0; without a loop there is but one).
struct EventInPass
{
    qint64 pass = 0;
    int eventIndex = 0;

    bool operator==(const EventInPass &) const = default;
};

// A part of a song that is played again and again, the same each time: from a tick on, for so many output samples. What
// begins in it ends in it.
struct PlaybackLoop
{
    Ticks begin = 0;
    Ticks end = 0;
    DspClock period = 0;

    bool operator==(const PlaybackLoop &) const = default;
};

// A note of a track with its place on the engine's clock.
struct PlacedNote
{
    EventInPass event;
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
    // start: the clock of tick 0. tempoFactor: above 0.
    TrackPlayback(const Track &track, const Instrument &instrument, int sampleRate, DspClock start,
                  double tempoFactor = 1);

    const Track &track() const { return track_; }

    // For the notes that are still to be taken.
    void setInstrument(const Instrument &instrument) { instrument_ = instrument; }
    // Output samples by which all notes sound later than they should, or sooner.
    void setOffset(qint64 samples) { offset_ = samples; }
    qint64 offset() const { return offset_; }

    // Of the first pass. Modulo 2^64: a track that was moved forward may have started before clock 0.
    DspClock clockAt(Ticks tick) const { return start_ + tempo_.samplesAt(tick); }
    DspClock lastEventClock() const;
    // 0 while the track has not begun. The offset does not count.
    Ticks tickAt(DspClock clock) const;

    // The next note that starts at the horizon or before it, in this pass; events that are none are passed.
    std::optional<PlacedNote> takeNote(Ticks horizon);
    // The next one in any pass, up to where the track is at the clock.
    std::optional<PlacedNote> takeNoteUntil(DspClock clock);
    // Those that began before the clock and sound on.
    std::vector<PlacedNote> notesAt(DspClock clock) const;
    // Whether every event has been taken; never in a loop.
    bool isExhausted() const { return !isLooping() && next_.eventIndex == track_.events().size(); }

    // Moves the track so that the tick sounds at the clock, and takes its events from there.
    void seek(Ticks tick, DspClock now);
    // Moves the track so that from the clock on it is where the other one is, with the other's loop, and takes its
    // events from there.
    void join(const TrackPlayback &other, DspClock from);
    // From the clock on, where the track stays. A loop whose end is behind it waits for a seek.
    void setTiming(double tempoFactor, const std::optional<PlaybackLoop> &loop, DspClock from);

    // The first event, not among the taken ones, that sounds the same note at the same clocks as the other track's.
    std::optional<EventInPass> sameNote(const TrackPlayback &other, EventInPass event,
                                        const QVector<EventInPass> &taken) const;

private:
    bool isLooping() const { return loop_ && !isBehindLoop_; }
    PlacedNote placed(EventInPass event) const;
    qint64 passAt(DspClock clock) const;
    DspClock passShift(qint64 pass) const { return isLooping() ? DspClock(pass) * loop_->period : 0; }
    DspClock passEnd(qint64 pass) const { return clockAt(loop_->begin) + passShift(pass + 1); }
    Ticks tickOfElapsed(DspClock elapsed) const;
    void resume(DspClock from);

    Track track_;
    Instrument instrument_;
    TempoMap tempo_;
    int sampleRate_;
    double tempoFactor_;
    DspClock start_; // of tick 0 in the first pass
    qint64 offset_ = 0;
    std::optional<PlaybackLoop> loop_;
    bool isBehindLoop_ = false;
    EventInPass next_; // to be taken
};

// The voice that sounds a note; its sound is null where there is silence. [audio] [render]
VoiceSpec voiceFor(const PlacedNote &note, GroupId group, SampleCache &samples);

// Seconds from an instrument's description as whole output samples; 0 for what is no duration. [any]
DspClock fadeSamples(double seconds, int sampleRate);
