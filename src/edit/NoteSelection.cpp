#include "edit/NoteSelection.h"

#include "edit/NoteLookup.h"

#include <algorithm>
#include <utility>

bool NoteSelection::select(const QVector<int> &notes, const Track &track)
{
    const auto &events = track.events();
    QVector<int> selected;
    std::copy_if(notes.begin(), notes.end(), std::back_inserter(selected),
                 [&](int note) { return note >= 0 && note < events.size() && events[note].isNote(); });
    std::sort(selected.begin(), selected.end());
    selected.erase(std::unique(selected.begin(), selected.end()), selected.end());
    return std::exchange(notes_, selected) != selected;
}

bool NoteSelection::clear()
{
    return !std::exchange(notes_, {}).isEmpty();
}

void NoteSelection::follow(const Track &from, const Track &to)
{
    notes_ = findNotes(to, specsOf(from, notes_));
}
