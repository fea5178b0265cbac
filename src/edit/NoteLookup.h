#pragma once

#include "core/Track.h"
#include "edit/NoteEdit.h"

// Notes of a track by what they are instead of by their index, which changes with every reading.

NoteSpec specOf(const TrackEvent &note);
// Every index must be one of the track's events.
QVector<NoteSpec> specsOf(const Track &track, const QVector<int> &notes);

// The indices of those that the track has, sorted and unique.
QVector<int> findNotes(const Track &track, QVector<NoteSpec> notes);

// For each note the first with its start and pitch; of length 0 where the track has none.
QVector<NoteSpec> firstNotesLike(const Track &track, const QVector<NoteSpec> &notes);
