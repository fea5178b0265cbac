#include "audio/SoundingNotes.h"

void SoundingNotes::tell(DspClock now, const Tell &pressed, const Tell &released)
{
    auto kept = notes_.begin();
    for (auto &note : notes_) {
        if (!note.isPressed && note.start <= now) {
            note.isPressed = true;
            pressed(note.trackId, note.eventIndex);
        }
        if (note.end <= now)
            released(note.trackId, note.eventIndex);
        else
            *kept++ = std::move(note);
    }
    notes_.erase(kept, notes_.end());
}

void SoundingNotes::removeTrack(const QString &trackId)
{
    std::erase_if(notes_, [&trackId](const SoundingNote &note) { return note.trackId == trackId; });
}

void SoundingNotes::reviseTrack(const QString &trackId, const std::function<bool(SoundingNote &)> &revise)
{
    std::erase_if(notes_, [&](SoundingNote &note) {
        if (note.trackId != trackId)
            return false;
        note.isPressed = false;
        return !revise(note);
    });
}
