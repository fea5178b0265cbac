#pragma once

#include "audio/AudioEngine.h"
#include "audio/ResultChecker.h"
#include "audio/TrackPlayback.h"
#include "audio/player/SoundingNotes.h"
#include "audio/samples/SampleFeed.h"

#include <QCoreApplication>

#include <functional>
#include <vector>

// Gives the notes of tracks to the engine, each at its exact output sample, and tells when they sound. A note whose
// sample comes late begins inside it, where it would be by then. [audio]
class NoteScheduler
{
    Q_DECLARE_TR_FUNCTIONS(NoteScheduler)

public:
    using Warn = std::function<void(const QString &text)>;

    // All must outlive it. warn: that notes are missing or silent, once after each allowWarning().
    NoteScheduler(AudioEngine &engine, ResultChecker &checker, SampleFeed &feed, Warn warn)
        : engine_(engine), checker_(checker), feed_(feed), warn_(std::move(warn))
    {
    }

    bool isEmpty() const { return sounding_.isEmpty(); }
    void allowWarning() { hasWarned_ = false; }

    // The playback's notes up to 100 ms from now, but those that sound already.
    void schedule(const QString &trackId, GroupId group, TrackPlayback &playback,
                  const QVector<EventInPass> &sounding = {});
    // They are taken, and not heard.
    void skip(TrackPlayback &playback) const;
    // Notes that have begun are heard from where they are by now.
    void soundHeld(const QString &trackId, GroupId group, const TrackPlayback &playback);
    // What is left of its scheduled notes when another version of the track takes its place; the others fade.
    QVector<EventInPass> handOver(const QString &trackId, const TrackPlayback &before, const TrackPlayback &after,
                                  SoundingNotes::Begun begun);
    void soundLateNotes();
    void forgetLateNotes(const QString &trackId);
    void forget(const QString &trackId);
    void release(const QString &trackId, const SoundingNotes::Tell &released)
    {
        sounding_.releaseTrack(trackId, released);
        forgetLateNotes(trackId);
    }
    void tell(const SoundingNotes::Tell &pressed, const SoundingNotes::Tell &released)
    {
        sounding_.tell(engine_.clock(), pressed, released);
    }

    DspClock lookAhead() const { return DspClock(0.1 * engine_.sampleRate()); }

private:
    struct Note
    {
        QString trackId;
        GroupId group;
        PlacedNote placed;
    };

    bool sound(const Note &note, DspClock now); // false: its sample is still to come
    void warnOnce(const QString &text);

    AudioEngine &engine_;
    ResultChecker &checker_;
    SampleFeed &feed_;
    Warn warn_;
    SoundingNotes sounding_;
    std::vector<Note> late_;
    bool hasWarned_ = false;
};
