#include "audio/SampleAhead.h"

bool SampleAhead::wantNext(SampleFeed &feed)
{
    if (!feed.want(needOf(*next_)))
        return false;
    next_ = playback_.takeNote(maxTicks);
    return true;
}

SampleNeed needOf(const PlacedNote &note)
{
    return {note.entry.files.value(0), note.entry.rate, note.fadeEnd - note.start, note.start};
}

SampleCount countSamples(TrackPlayback playback, DspClock end, SampleFeed &feed)
{
    SampleCount count;
    const auto horizon = playback.tickAt(end);
    while (const auto note = playback.takeNote(horizon)) {
        ++count.all;
        count.ready += feed.find(needOf(*note)).state != SampleFeed::State::Loading ? 1 : 0;
    }
    return count;
}
