#pragma once

#include "audio/TrackPlayback.h"
#include "audio/samples/SampleFeed.h"

// Goes through the notes of a track ahead of its playback, so that their samples are there in time. [audio]
class SampleAhead
{
public:
    // From the first note on that the playback has not taken.
    explicit SampleAhead(const TrackPlayback &playback) : playback_(playback) {}

    // The next note up to the clock; null when there is none.
    const PlacedNote *next(DspClock until);
    // What the next note needs; false when the feed wants to be asked again later.
    bool wantNext(SampleFeed &feed);

private:
    TrackPlayback playback_;
    std::optional<PlacedNote> next_;
};

// What a note needs. [any]
SampleNeed needOf(const PlacedNote &note);

struct SampleCount
{
    int ready = 0;
    int all = 0;
};

// Of the notes that begin before the clock and that the playback has not taken: how many samples are there. [audio]
SampleCount countSamples(TrackPlayback playback, DspClock end, SampleFeed &feed);
