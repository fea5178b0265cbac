#include "audio/player/SoundingNotes.h"

void SoundingNotes::tell(DspClock now, const Tell &pressed, const Tell &released)
{
    auto kept = notes_.begin();
    for (auto &note : notes_) {
        if (!note.isPressed && note.start <= now) {
            note.isPressed = true;
            pressed(note.trackId, note.event.eventIndex);
        }
        if (note.end <= now)
            released(note.trackId, note.event.eventIndex);
        else
            *kept++ = std::move(note);
    }
    notes_.erase(kept, notes_.end());
}

void SoundingNotes::removeTrack(const QString &trackId)
{
    std::erase_if(notes_, [&trackId](const SoundingNote &note) { return note.trackId == trackId; });
}

void SoundingNotes::releaseTrack(const QString &trackId, const Tell &released)
{
    for (const auto &note : notes_) {
        if (note.trackId == trackId && note.isPressed)
            released(trackId, note.event.eventIndex);
    }
    removeTrack(trackId);
}

QVector<EventInPass> SoundingNotes::handOver(const QString &trackId, const TrackPlayback &before,
                                             const TrackPlayback &after, Begun begun, DspClock now,
                                             const std::function<void(VoiceId)> &end)
{
    QVector<EventInPass> kept;
    std::erase_if(notes_, [&](SoundingNote &note) {
        if (note.trackId != trackId)
            return false;
        const auto same = after.sameNote(before, note.event, kept);
        if (!same && begun == Begun::Stay && note.start < now)
            return false;
        if (!same) {
            end(note.voice);
            return true;
        }
        note.isPressed = note.isPressed && note.event.eventIndex == same->eventIndex && begun == Begun::Stay;
        note.event = *same;
        kept.append(*same);
        return false;
    });
    return kept;
}
