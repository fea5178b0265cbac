#include "audio/player/SampleAhead.h"

const PlacedNote *SampleAhead::next(DspClock until)
{
    if (!next_)
        next_ = playback_.takeNoteUntil(until);
    return next_ ? &*next_ : nullptr;
}

bool SampleAhead::wantNext(SampleFeed &feed)
{
    if (!feed.want(needOf(*next_)))
        return false;
    next_.reset();
    return true;
}

SampleNeed needOf(const PlacedNote &note)
{
    return {note.entry.files.value(0), note.entry.rate, note.fadeEnd - note.start, note.start};
}

SampleCount countSamples(TrackPlayback playback, DspClock end, SampleFeed &feed)
{
    SampleCount count;
    while (const auto note = playback.takeNoteUntil(end)) {
        ++count.all;
        count.ready += feed.find(needOf(*note)).state != SampleFeed::State::Loading ? 1 : 0;
    }
    return count;
}
