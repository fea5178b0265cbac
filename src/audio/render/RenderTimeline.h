#pragma once

#include "audio/AudioEngine.h"
#include "audio/TrackPlayback.h"

#include <functional>
#include <stop_token>
#include <vector>

class SampleCache;

// A track of a render and what its group does to it.
struct RenderTrack
{
    TrackPlayback playback; // starts at clock 0
    GroupLevel level;
};

// What of a song is rendered, in frames.
struct RenderRange
{
    DspClock from = 0;
    DspClock to = never; // where the song ends by itself
};

// All notes of a render that sound in its range. The sample cache must outlive it. [render]
class RenderTimeline : public Timeline
{
public:
    // Throws Interrupted when it is asked to stop.
    RenderTimeline(const std::vector<RenderTrack> &tracks, SampleCache &samples, const std::stop_token &stop = {},
                   RenderRange range = {});

    const std::vector<GroupLevel> &groups() const override { return groups_; }
    // The end of the range; else where the last event has begun and the last voice has ended.
    DspClock end() const override { return end_; }
    std::vector<VoiceSpec> takeVoices(DspClock before) override; // only from then on do they hold samples

private:
    struct Note
    {
        PlacedNote placed;
        GroupId group;
    };

    SampleCache &samples_;
    std::vector<GroupLevel> groups_;
    std::vector<Note> notes_; // by start; those of one group in the order of their track
    std::size_t nextNote_ = 0;
    DspClock end_ = 0;
};

// Tells how far a render has come, in ticks: blocks are passed one by one, and every 64th look at a track whose end is
// still ahead is told. [render]
class RenderProgress
{
public:
    using Tell = std::function<void(quint64 currentTick, quint64 totalTicks)>;

    RenderProgress(const std::vector<RenderTrack> &tracks, Tell tell);

    // All tracks have sounded up to the clock.
    void passBlock(DspClock clock);

private:
    std::vector<TrackPlayback> tracks_;
    Tell tell_;
    Ticks totalTicks_ = 0;
    quint64 visits_ = 0;
};
