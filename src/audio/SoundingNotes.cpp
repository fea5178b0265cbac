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

QSet<int> SoundingNotes::handOver(const QString &trackId, const TrackPlayback &before, const TrackPlayback &after,
                                  const std::function<void(VoiceId)> &end)
{
    QSet<int> kept;
    std::erase_if(notes_, [&](SoundingNote &note) {
        if (note.trackId != trackId)
            return false;
        const auto same = after.sameNote(before, note.eventIndex, kept);
        if (!same) {
            end(note.voice);
            return true;
        }
        note.eventIndex = *same;
        note.isPressed = false;
        kept.insert(*same);
        return false;
    });
    return kept;
}
