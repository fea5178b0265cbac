#include "audio/TrackPlayback.h"

#include "audio/SampleCache.h"

#include <algorithm>
#include <tuple>

TrackPlayback::TrackPlayback(const Track &track, const Instrument &instrument, int sampleRate, DspClock start)
    : track_(track), instrument_(instrument), tempo_(track, sampleRate), sampleRate_(sampleRate), start_(start)
{
}

DspClock TrackPlayback::lastEventClock() const
{
    return track_.events().isEmpty() ? start_ : clockAt(track_.events().last().start());
}

Ticks TrackPlayback::tickAt(DspClock clock) const
{
    // The difference wraps around when the track begins later than the clock; a seek may move the start back by more
    // than that, so only a narrow range at the top counts as "before".
    constexpr DspClock longestLead = DspClock(1) << 24;
    const auto elapsed = clock - start_;
    return elapsed > DspClock(0) - longestLead ? 0 : tempo_.tickAt(elapsed);
}

std::optional<PlacedNote> TrackPlayback::takeNote(Ticks horizon)
{
    const auto &events = track_.events();
    while (nextEvent_ < events.size() && events[nextEvent_].start() <= horizon) {
        const auto index = nextEvent_++;
        if (events[index].isNote())
            return placed(index);
    }
    return std::nullopt;
}

PlacedNote TrackPlayback::placed(int eventIndex) const
{
    const auto &event = track_.events()[eventIndex];
    const auto end = clockAt(event.end());
    return {eventIndex,
            instrument_.tuning.notes.value(event.pitch()),
            event.velocity(),
            clockAt(event.start()),
            end,
            end + fadeSamples(instrument_.tuning.fadeout, sampleRate_)};
}

void TrackPlayback::seek(Ticks tick, DspClock now)
{
    start_ = now - tempo_.samplesAt(tick);
    nextEvent_ = track_.firstEventAtOrAfter(tick);
}

void TrackPlayback::join(const TrackPlayback &other, DspClock from)
{
    // A tick of the other one is the same sample here, so that equal tempos agree for good.
    const auto tick = other.tickAt(from);
    start_ = other.clockAt(tick) - tempo_.samplesAt(tick);
    const auto &events = track_.events();
    nextEvent_ = track_.firstEventAtOrAfter(tick);
    while (nextEvent_ < events.size() && qint64(clockAt(events[nextEvent_].start()) - from) < 0)
        ++nextEvent_;
}

std::optional<int> TrackPlayback::sameNote(const TrackPlayback &other, int eventIndex, const QSet<int> &taken) const
{
    if (eventIndex >= other.track_.events().size()) // a note of what the other one replaced
        return std::nullopt;
    const auto theirs = other.placed(eventIndex);
    const auto tick = other.track_.events()[eventIndex].start();
    const auto &events = track_.events();
    for (auto index = track_.firstEventAtOrAfter(tick); index < events.size() && events[index].start() == tick;
         ++index) {
        if (events[index].isNote() && !taken.contains(index) && placed(index).soundsLike(theirs))
            return index;
    }
    return std::nullopt;
}

bool PlacedNote::soundsLike(const PlacedNote &other) const
{
    const auto values = [](const PlacedNote &note) {
        return std::tie(note.entry.files, note.entry.rate, note.velocity, note.start, note.end, note.fadeEnd);
    };
    return values(*this) == values(other);
}

VoiceSpec voiceFor(const PlacedNote &note, GroupId group, SampleCache &samples)
{
    const auto sample = samples.find(note.entry, note.fadeEnd - note.start);
    return {sample.sound, group, note.start, note.end, note.fadeEnd, note.velocity, sample.ratio};
}

DspClock fadeSamples(double seconds, int sampleRate)
{
    constexpr double longestFade = 24.0 * 60 * 60;
    return seconds > 0 ? DspClock(std::min(seconds, longestFade) * sampleRate) : 0;
}
