#pragma once

#include "core/Track.h"
#include "edit/NoteEdit.h"

// Changes of many notes as one edit. Notes are named by their index in the track's events; where none are named, all
// are meant.
namespace NoteEdits {

// What makes the notes of one track those of another that was made of it, note by note.
NoteEdit between(const Track &before, const Track &after, const QVector<int> &notes);

// Notes that would leave the playable range are removed.
NoteEdit transposition(const Track &track, const QVector<int> &notes, int semitones);

// The notes as the edit leaves them; those that it removes are missing.
QVector<NoteSpec> after(const NoteEdit &edit, const Track &track, const QVector<int> &notes);

} // namespace NoteEdits
