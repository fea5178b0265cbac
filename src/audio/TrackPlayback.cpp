#include "audio/TrackPlayback.h"

#include "audio/SampleCache.h"

#include <algorithm>
#include <tuple>

TrackPlayback::TrackPlayback(const Track &track, const Instrument &instrument, int sampleRate, DspClock start,
                             double tempoFactor)
    : track_(track), instrument_(instrument), tempo_(track, sampleRate, tempoFactor), sampleRate_(sampleRate),
      tempoFactor_(tempoFactor), start_(start)
{
}

DspClock TrackPlayback::lastEventClock() const
{
    return track_.events().isEmpty() ? start_ : clockAt(track_.events().last().start());
}

Ticks TrackPlayback::tickAt(DspClock clock) const
{
    return tickOfElapsed(clock - start_ - passShift(passAt(clock)));
}

Ticks TrackPlayback::tickOfElapsed(DspClock elapsed) const
{
    // The difference wraps around when the track begins later than the clock; a seek may move the start back by more
    // than that, so only a narrow range at the top counts as "before".
    constexpr DspClock longestLead = DspClock(1) << 24;
    return elapsed > DspClock(0) - longestLead ? 0 : tempo_.tickAt(elapsed);
}

qint64 TrackPlayback::passAt(DspClock clock) const
{
    if (!isLooping())
        return 0;
    const auto inLoop = qint64(clock - clockAt(loop_->begin));
    return inLoop > 0 ? inLoop / qint64(loop_->period) : 0;
}

std::optional<PlacedNote> TrackPlayback::takeNote(Ticks horizon)
{
    const auto &events = track_.events();
    while (next_.eventIndex < events.size() && events[next_.eventIndex].start() <= horizon) {
        const auto event = next_;
        ++next_.eventIndex;
        if (events[event.eventIndex].isNote())
            return placed(event);
    }
    return std::nullopt;
}

std::optional<PlacedNote> TrackPlayback::takeNoteUntil(DspClock clock)
{
    const auto until = clock - DspClock(offset_);
    if (!isLooping())
        return takeNote(tickAt(until));
    for (;;) {
        const auto end = passEnd(next_.pass);
        const auto horizon = tickOfElapsed(until - start_ - passShift(next_.pass));
        while (const auto note = takeNote(std::min(horizon, loop_->end - 1))) {
            if (qint64(note->start - end - DspClock(offset_)) < 0) // another track's tempo may be faster
                return note;
        }
        if (qint64(end - until) > 0)
            return std::nullopt;
        next_ = {next_.pass + 1, track_.firstEventAtOrAfter(loop_->begin)};
    }
}

std::vector<PlacedNote> TrackPlayback::notesAt(DspClock clock) const
{
    std::vector<PlacedNote> notes;
    const auto own = clock - DspClock(offset_);
    const auto pass = passAt(own);
    const auto first = pass > 0 ? track_.firstEventAtOrAfter(loop_->begin) : 0;
    const auto tick = tickAt(own);
    for (auto index = first; index < track_.events().size() && track_.events()[index].start() <= tick; ++index) {
        if (!track_.events()[index].isNote() || track_.events()[index].end() < tick)
            continue;
        const auto note = placed({pass, index});
        if (qint64(note.start - clock) < 0 && qint64(note.end - clock) > 0)
            notes.push_back(note);
    }
    return notes;
}

// In a loop a note falls silent before the next pass begins, so that all are the same.
PlacedNote TrackPlayback::placed(EventInPass place) const
{
    const auto &event = track_.events()[place.eventIndex];
    const auto shift = passShift(place.pass) + DspClock(offset_);
    const auto start = clockAt(event.start()) + shift;
    auto end = clockAt(event.end()) + shift;
    auto fadeEnd = end + fadeSamples(instrument_.tuning.fadeout, sampleRate_);
    if (isLooping()) {
        const auto last = passEnd(place.pass) + DspClock(offset_);
        const auto shortFade = std::min<qint64>(sampleRate_ / 200, qint64(last - start));
        if (qint64(fadeEnd - last) > 0) {
            fadeEnd = last;
            end = qint64(end - last) > -shortFade ? last - DspClock(shortFade) : end;
        }
    }
    return {place, instrument_.tuning.notes.value(event.pitch()), event.velocity(), start, end, fadeEnd};
}

void TrackPlayback::seek(Ticks tick, DspClock now)
{
    start_ = now - tempo_.samplesAt(tick);
    isBehindLoop_ = loop_ && tick >= loop_->end;
    next_ = {0, track_.firstEventAtOrAfter(tick)};
}

void TrackPlayback::join(const TrackPlayback &other, DspClock from)
{
    loop_ = other.loop_;
    isBehindLoop_ = other.isBehindLoop_;
    // A tick of the other one is the same sample here, so that equal tempos agree for good.
    const auto tick = isLooping() ? loop_->begin : other.tickAt(from);
    start_ = other.clockAt(tick) - tempo_.samplesAt(tick);
    resume(from);
}

// With the first event that does not sound before the clock.
void TrackPlayback::resume(DspClock from)
{
    const auto &events = track_.events();
    const auto own = from - DspClock(offset_);
    next_ = {passAt(own), track_.firstEventAtOrAfter(tickAt(own))};
    const auto shift = passShift(next_.pass) + DspClock(offset_);
    while (next_.eventIndex < events.size() && qint64(clockAt(events[next_.eventIndex].start()) + shift - from) < 0)
        ++next_.eventIndex;
}

void TrackPlayback::setTiming(double tempoFactor, const std::optional<PlaybackLoop> &loop, DspClock from)
{
    const auto tick = tickAt(from);
    start_ += passShift(passAt(from)); // the present pass is the first from now on
    loop_ = loop;
    if (tempoFactor != tempoFactor_) {
        tempoFactor_ = tempoFactor;
        tempo_ = TempoMap(track_, sampleRate_, tempoFactor);
        if (qint64(start_ - from) < 0) // before the beginning it stays as far away
            start_ = from - tempo_.samplesAt(tick);
    }
    isBehindLoop_ = loop_ && tick >= loop_->end;
    resume(from);
}

std::optional<EventInPass> TrackPlayback::sameNote(const TrackPlayback &other, EventInPass event,
                                                   const QVector<EventInPass> &taken) const
{
    if (event.eventIndex >= other.track_.events().size()) // a note of what the other one replaced
        return std::nullopt;
    const auto theirs = other.placed(event);
    const auto pass = passAt(theirs.start - DspClock(offset_));
    const auto tick = other.track_.events()[event.eventIndex].start();
    const auto &events = track_.events();
    for (auto index = track_.firstEventAtOrAfter(tick); index < events.size() && events[index].start() == tick;
         ++index) {
        const EventInPass ours{pass, index};
        if (events[index].isNote() && !taken.contains(ours) && placed(ours).soundsLike(theirs))
            return ours;
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
