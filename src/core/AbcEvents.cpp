#include "core/AbcEvents.h"

#include "core/AbcListener.h"

#include <algorithm>

TrackEvent *PendingTies::find(quint32 pitch)
{
    const auto note = std::find_if(notes_.begin(), notes_.end(),
                                   [pitch](const TrackEvent &pending) { return pending.pitch() == pitch; });
    return note == notes_.end() ? nullptr : &*note;
}

void PendingTies::writeTo(QVector<TrackEvent> &events, quint32 pitch)
{
    auto *const note = find(pitch);
    if (note == nullptr)
        return;
    events.append(*note);
    *note = notes_.back();
    notes_.pop_back();
}

void PendingTies::scale(Ticks start, const AbcRatio &ratio)
{
    for (auto &note : notes_) {
        if (note.start() == start)
            note.setLength(ratio.of(note.length()));
    }
}

std::vector<TrackEvent> PendingTies::take()
{
    std::sort(notes_.begin(), notes_.end(),
              [](const TrackEvent &a, const TrackEvent &b) { return a.pitch() < b.pitch(); });
    return std::move(notes_);
}

void AbcEvents::sound(const AbcElement &element, Ticks start)
{
    if (!ties_.isEmpty())
        endInterruptedTies(element, start);
    const auto firstEvent = events_.size();
    for (const auto &note : element.notes)
        sound(note, start);
    if (element.isChord)
        finishChord(element, start, firstEvent);
}

void AbcEvents::endInterruptedTies(const AbcElement &element, Ticks start)
{
    for (const auto &note : element.notes) {
        const auto *const pending = ties_.find(note.pitch);
        if (pending == nullptr || pending->end() == start)
            continue;
        loseTie(*pending);
        ties_.writeTo(events_, note.pitch);
    }
}

void AbcEvents::sound(const WrittenNote &note, Ticks start)
{
    const auto length = note.staccato ? note.length / 2 : note.length;
    if (!ties_.isEmpty() && endsTie(note, start, length))
        return;
    auto event = TrackEvent::note(note.pitch, start, length);
    event.setTextPosition(note.textLine, note.textColumn, note.textLength);
    if (note.tied)
        ties_.put(event);
    else
        events_.append(event);
}

// Whether the note lengthens one that waits for it. One that waits for another time will not be continued.
bool AbcEvents::endsTie(const WrittenNote &note, Ticks start, Ticks length)
{
    auto *const pending = ties_.find(note.pitch);
    const bool isContinued = pending != nullptr && pending->end() == start;
    if (isContinued)
        pending->setLength(std::min(maxTicks, pending->length() + length));
    if (!isContinued || !note.tied)
        ties_.writeTo(events_, note.pitch);
    return isContinued;
}

// The chord's own length and tie reach the notes that it appended and those of its notes that are tied.
void AbcEvents::finishChord(const AbcElement &chord, Ticks start, qsizetype firstEvent)
{
    if (!chord.chordLength.isOne()) {
        for (auto event = events_.begin() + firstEvent; event != events_.end(); ++event)
            event->setLength(chord.chordLength.of(event->length()));
        ties_.scale(start, chord.chordLength);
    }
    if (chord.chordTied)
        tieFrom(firstEvent);
}

void AbcEvents::tieFrom(qsizetype firstEvent)
{
    const auto tied = events_.mid(decltype(events_.size())(firstEvent));
    events_.resize(decltype(events_.size())(firstEvent));
    for (const auto &event : tied) {
        ties_.writeTo(events_, event.pitch());
        ties_.put(event);
    }
}

void AbcEvents::loseTie(const TrackEvent &note)
{
    if (listener_ != nullptr)
        listener_->tieLost(note);
}

QVector<TrackEvent> AbcEvents::take()
{
    for (const auto &note : ties_.take()) {
        loseTie(note);
        events_.append(note);
    }
    return std::move(events_);
}
