#include "audio/player/NoteScheduler.h"

#include "audio/player/SampleAhead.h"

#include <utility>

void NoteScheduler::schedule(const QString &trackId, GroupId group, TrackPlayback &playback,
                             const QVector<EventInPass> &sounding)
{
    const auto now = engine_.clock();
    while (const auto placed = playback.takeNoteUntil(now + lookAhead())) {
        if (sounding.contains(placed->event))
            continue;
        if (const Note note{trackId, group, *placed}; !sound(note, now))
            late_.push_back(note);
    }
}

void NoteScheduler::skip(TrackPlayback &playback) const
{
    while (playback.takeNoteUntil(engine_.clock() + lookAhead())) {
    }
}

void NoteScheduler::soundHeld(const QString &trackId, GroupId group, const TrackPlayback &playback)
{
    const auto now = engine_.clock();
    for (const auto &placed : playback.notesAt(now)) {
        if (const Note note{trackId, group, placed}; !sound(note, now))
            late_.push_back(note);
    }
}

bool NoteScheduler::sound(const Note &note, DspClock now)
{
    const auto &placed = note.placed;
    const bool isLate = qint64(placed.start - now) < 0;
    const bool isOver = isLate && (qint64(placed.end - now) <= 0 || placed.start > now);
    const auto found = isOver ? SampleFeed::Found() : feed_.find(needOf(placed));
    if (found.state == SampleFeed::State::Loading) {
        feed_.wantNow(needOf(placed));
        return false;
    }
    if (!isOver && feed_.isRejected(needOf(placed).path))
        warnOnce(tr("Notes are silent: samples of the game cannot be read."));
    const VoiceSpec voice{found.sound,    note.group,      placed.start, placed.end,
                          placed.fadeEnd, placed.velocity, found.ratio,  LateStart::Inside};
    VoiceId id{};
    if (voice.sound && checker_.check(engine_, engine_.play(voice, id)))
        sounding_.add({note.trackId, placed.start, placed.end, placed.event, id});
    return true;
}

void NoteScheduler::soundLateNotes()
{
    const auto now = engine_.clock();
    std::erase_if(late_, [&](const Note &note) {
        const bool isMissed = qint64(note.placed.end - now) <= 0;
        if (isMissed)
            warnOnce(feed_.lacksRoom() ? tr("Notes are missing: the samples that sound at once need too much memory.")
                                       : tr("Notes are missing: samples could not be loaded in time."));
        return isMissed || sound(note, now);
    });
}

void NoteScheduler::warnOnce(const QString &text)
{
    if (!std::exchange(hasWarned_, true))
        warn_(text);
}

QVector<EventInPass> NoteScheduler::handOver(const QString &trackId, const TrackPlayback &before,
                                             const TrackPlayback &after, SoundingNotes::Begun begun)
{
    const auto shortFade = std::size_t(engine_.sampleRate()) / 200; // 5 ms: without a click
    return sounding_.handOver(trackId, before, after, begun, engine_.clock(), [this, shortFade](VoiceId voice) {
        checker_.check(engine_, engine_.fadeOut(voice, shortFade));
    });
}

void NoteScheduler::forgetLateNotes(const QString &trackId)
{
    std::erase_if(late_, [&trackId](const Note &note) { return note.trackId == trackId; });
}

void NoteScheduler::forget(const QString &trackId)
{
    sounding_.removeTrack(trackId);
    forgetLateNotes(trackId);
}
