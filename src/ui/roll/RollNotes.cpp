#include "ui/roll/RollNotes.h"

RollNotes::RollNotes(const Track &track)
{
    const auto &events = track.events();
    notes_.reserve(events.size());
    for (int i = 0; i < int(events.size()); ++i) {
        const auto &event = events[i];
        if (!event.isNote())
            continue;
        if (notes_.size() % blockSize == 0)
            blockEnds_.append(0);
        blockEnds_.last() = std::max(blockEnds_.last(), event.end());
        notes_.append({event.start(), event.length(), int(event.pitch()), i});
    }
}

int RollNotes::firstStartingAtOrAfter(Ticks tick) const
{
    const auto startsBefore = [](const RollNote &note, Ticks at) { return note.start < at; };
    return int(std::lower_bound(notes_.begin(), notes_.end(), tick, startsBefore) - notes_.begin());
}

int RollNotes::ofEvent(int event) const
{
    const auto isBefore = [](const RollNote &note, int at) { return note.event < at; };
    const auto found = std::lower_bound(notes_.begin(), notes_.end(), event, isBefore);
    return found != notes_.end() && found->event == event ? int(found - notes_.begin()) : -1;
}
