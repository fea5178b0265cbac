#include "edit/notes/NoteMove.h"

#include "core/AbcParser.h"
#include "edit/NoteLookup.h"

#include <algorithm>

Ticks possibleShift(const QVector<NoteSpec> &notes, Ticks ticks)
{
    for (const auto &note : notes)
        ticks = std::clamp(ticks, -note.start, maxTicks - note.start - note.length);
    return ticks;
}

int possibleTransposition(const QVector<NoteSpec> &notes, int semitones)
{
    const bool isPossible = std::all_of(notes.begin(), notes.end(), [semitones](const NoteSpec &note) {
        return isPlayable(qint64(note.pitch) + semitones);
    });
    return isPossible ? semitones : 0;
}

NoteMove::NoteMove(const Track &track, const QVector<int> &notes)
    : track_(track), notes_(notes), from_(specsOf(track, notes))
{
}

NoteMove NoteMove::further(Ticks ticks, int semitones) const
{
    auto next = *this;
    next.ticks_ = possibleShift(from_, ticks_ + ticks);
    const auto transposition = semitones_ + semitones;
    if (transposition == 0 || possibleTransposition(from_, transposition) != 0)
        next.semitones_ = transposition;
    return next;
}

QVector<NoteSpec> NoteMove::moved() const
{
    auto notes = from_;
    for (auto &note : notes) {
        note.start += ticks_;
        note.pitch = quint32(int(note.pitch) + semitones_);
    }
    return notes;
}

NoteEdit NoteMove::edit() const
{
    const auto to = moved();
    NoteEdit edit;
    edit.changed.reserve(to.size());
    for (int i = 0; i < to.size(); ++i)
        edit.changed.append({notes_[i], to[i]});
    return edit;
}

int NoteMove::replacedCount() const
{
    const auto there = findNotes(track_, firstNotesLike(track_, moved()));
    return int(std::count_if(there.begin(), there.end(),
                             [this](int note) { return !std::binary_search(notes_.begin(), notes_.end(), note); }));
}
