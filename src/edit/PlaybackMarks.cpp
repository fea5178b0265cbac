#include "edit/PlaybackMarks.h"

#include "edit/NoteLookup.h"

#include <utility>

bool PlaybackMarks::setPosition(Ticks tick)
{
    return std::exchange(position_, tick) != tick;
}

bool PlaybackMarks::setNotes(const QVector<NoteSpec> &notes, const Track &track)
{
    specs_ = notes;
    const auto found = findNotes(track, specs_);
    return std::exchange(notes_, found) != found;
}

void PlaybackMarks::follow(const Track &track)
{
    notes_ = findNotes(track, specs_);
}
