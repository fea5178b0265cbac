#pragma once

#include "audio/player/NoteScheduler.h"
#include "audio/player/PlayRequest.h"
#include "audio/player/SampleAhead.h"

#include <QMap>

#include <functional>
#include <optional>
#include <tuple>
#include <vector>

// A track that a player plays.
struct PlayingTrack
{
    TrackPlayback playback;
    QString syncGroup; // empty: none
    GroupLevel level;
    bool isMuted = false;
    Ticks from = 0;      // where it started …
    DspClock begins = 0; // … and when
    bool isHeld = false; // until the samples of its first second are loaded
    GroupId group = masterGroup;
    SampleAhead ahead = SampleAhead(playback);

    bool hasBegun(DspClock clock) const { return qint64(clock - begins) >= 0; }
    Ticks position(DspClock clock) const { return hasBegun(clock) ? playback.tickAt(clock) : from; }
    // Begins there, and then.
    void place(Ticks tick, DspClock clock)
    {
        from = tick;
        begins = clock;
        playback.seek(tick, clock);
    }
};

// The tracks that a player plays: begins them together when their samples are there, keeps their time and their loop,
// and has the samples of the notes to come loaded. [audio]
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
    bool isIdle() const { return tracks_.isEmpty() && notes_.isEmpty(); }

    // In one go: those of one group that start begin at the same sample.
    void play(const QVector<PlayRequest> &requests);
    // What the notes of a track need, behind all else.
    void prepare(const Track &track, const Instrument &instrument);
    void pass();
    void stop(const QString &trackId);
    void stopAll();

    // Of all tracks, also of those to come.
    void setLoop(const std::optional<LoopRegion> &loop);
    void setTempoFactor(double factor);

    // Of a track that is not playing, nothing.
    void setMuted(const QString &trackId, bool isMuted);
    void setLevel(const QString &trackId, const std::function<void(GroupLevel &)> &change);
    void setInstrument(const QString &trackId, const Instrument &instrument);
    void setOffset(const QString &trackId, double milliseconds);
    void seek(Ticks tick, const std::function<bool(const QString &trackId, const PlayingTrack &)> &isSelected);

private:
    using Tracks = QMap<QString, PlayingTrack>;
    bool check(AudioResult result) { return checker_.check(engine_, result); }
    qint64 samplesOf(double milliseconds) const { return qint64(milliseconds * engine_.sampleRate() / 1000); }
    const PlayingTrack *leaderOf(const PlayRequest &request) const;
    const PlayingTrack *partnerOf(const PlayRequest &request) const;
    void start(const PlayRequest &request);
    void begin(const QString &trackId, PlayingTrack track);
    void join(const QString &trackId, PlayingTrack track, const PlayingTrack &leader);
    PlayingTrack &insert(const QString &trackId, const PlayingTrack &track);
    void hold(bool isStuck);
    bool tellLoading(const std::vector<PlayingTrack *> &held); // false: all is there
    void endLoading();
    void lookAheadAgain();
    void startCountIn(const PlayRequest &request);
    DspClock countInFrames() const;
    void passCountIn();
    void retimeCountIn();
    void endCountIn();
    bool passTrack(Tracks::iterator track); // false: it is over
    void schedule(const QString &trackId, PlayingTrack &track, const QVector<EventInPass> &sounding = {});
    std::optional<PlaybackLoop> playbackLoop() const;
    void followLoop();
    void applyTiming();
    void retime(const QString &trackId, PlayingTrack &track, const TrackPlayback &before);
    SampleAhead *earliest(DspClock until);
    bool wantSamples(); // false: nothing new

    AudioEngine &engine_;
    ResultChecker &checker_;
    SampleFeed &feed_;
    Listener listener_;
    Tracks tracks_;
    std::optional<PlayingTrack> countIn_; // until it is over
    NoteScheduler notes_;
    std::vector<SampleAhead> prepared_;
    Ticks longestLength_ = 0;
    std::optional<LoopRegion> loop_;
    std::optional<PlaybackLoop> playedLoop_;
    double tempoFactor_ = 1;
    std::tuple<int, int, int> toldLoading_; // nothing told: zeros
};
