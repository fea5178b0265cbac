#pragma once

#include "audio/AudioEngine.h"
#include "audio/PlayRequest.h"
#include "audio/ResultChecker.h"
#include "audio/SampleAhead.h"
#include "audio/SoundingNotes.h"
#include "audio/TrackPlayback.h"
#include "audio/samples/SampleFeed.h"

#include <QMap>

#include <functional>
#include <tuple>
#include <vector>

// A track that a player plays.
struct PlayingTrack
{
    TrackPlayback playback;
    QString syncGroup; // empty: none
    GroupLevel level;
    bool isMuted = false;
    Ticks from = 0;      // where it started
    bool isHeld = false; // there, until the samples of its first second are loaded
    GroupId group = masterGroup;
    SampleAhead ahead = SampleAhead(playback);

    // Where it is at the clock, and will begin while it has not.
    Ticks position(DspClock clock) const
    {
        const bool hasBegun = qint64(clock - playback.clockAt(from)) >= 0;
        return hasBegun ? playback.tickAt(clock) : from;
    }
};

// The tracks that a player plays: gives each note to the engine up to 100 ms ahead of the mixer, at its exact output
// sample, and has the samples of those to come loaded. A note whose sample comes late begins inside it, where it would
// be by then. [audio]
class PlayingTracks
{
public:
    struct Listener
    {
        std::function<void(const QString &trackId)> started;
        std::function<void(const QString &trackId)> stopped;
        std::function<void(const QString &trackId, int eventIndex)> pressed;
        std::function<void(const QString &trackId, int eventIndex)> released;
        // Tracks are held; the first that lacks samples (from 1), of how many, and how many per cent of them it has.
        std::function<void(int track, int tracks, int percent)> loading;
        std::function<void()> loaded; // they are held no more
        // What the user should know, once for each start.
        std::function<void(const QString &text)> warn;
    };

    // All must outlive it.
    PlayingTracks(AudioEngine &engine, ResultChecker &checker, SampleFeed &feed, Listener listener);

    const QMap<QString, PlayingTrack> &tracks() const { return tracks_; }
    bool isIdle() const { return tracks_.isEmpty() && soundingNotes_.isEmpty(); }

    // In one go: those of one group that start begin at the same sample.
    void play(const QVector<PlayRequest> &requests);
    // What the notes of a track need, behind all else.
    void prepare(const Track &track, const Instrument &instrument);
    void pass();
    void stop(const QString &trackId);
    void stopAll();

    // Of a track that is not playing, nothing.
    void setMuted(const QString &trackId, bool isMuted);
    void setLevel(const QString &trackId, const std::function<void(GroupLevel &)> &change);
    void setInstrument(const QString &trackId, const Instrument &instrument);
    void seek(Ticks tick, const std::function<bool(const QString &trackId, const PlayingTrack &)> &isSelected);

private:
    using Tracks = QMap<QString, PlayingTrack>;
    struct LateNote
    {
        QString trackId;
        GroupId group;
        PlacedNote note;
    };

    bool check(AudioResult result) { return checker_.check(engine_, result); }
    DspClock lookAhead() const { return DspClock(0.1 * engine_.sampleRate()); }
    std::size_t shortFade() const { return std::size_t(engine_.sampleRate()) / 200; } // 5 ms: without a click
    const PlayingTrack *leaderOf(const PlayRequest &request) const;
    const PlayingTrack *partnerOf(const PlayRequest &request) const;
    void start(const PlayRequest &request);
    void begin(const QString &trackId, PlayingTrack track);
    void join(const QString &trackId, PlayingTrack track, const TrackPlayback &leader);
    PlayingTrack &insert(const QString &trackId, const PlayingTrack &track);
    void hold(bool isStuck);
    bool tellLoading(const std::vector<PlayingTrack *> &held); // false: all is there
    void endLoading();
    void lookAheadAgain();
    bool passTrack(Tracks::iterator track); // false: it is over
    // All but the events that sound already.
    void schedule(const QString &trackId, PlayingTrack &track, DspClock now, const QSet<int> &sounding = {});
    bool sound(const LateNote &late, DspClock now); // false: its sample is still to come
    void soundLateNotes();
    void forgetLateNotes(const QString &trackId);
    bool wantSamples(); // false: nothing new
    void warn(const QString &text);

    AudioEngine &engine_;
    ResultChecker &checker_;
    SampleFeed &feed_;
    Listener listener_;
    Tracks tracks_;
    SoundingNotes soundingNotes_;
    std::vector<LateNote> lateNotes_;
    std::vector<SampleAhead> prepared_;
    Ticks longestLength_ = 0;
    std::tuple<int, int, int> toldLoading_; // nothing told: zeros
    bool hasWarned_ = false;
};
