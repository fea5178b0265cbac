#pragma once

#include "core/Track.h"
#include "edit/NoteEdit.h"

#include <QVector>

// Some notes as a tune of their own, for the clipboard: in the key and unit length of the track, from the first on.
QString notesAsAbc(const Track &track, const QVector<NoteSpec> &notes);

// Without its header.
QString bodyOfAbc(const QString &abc);

// The notes of a tune, or of a body in the key and unit length of the track.
QVector<NoteSpec> notesFromAbc(const Track &track, const QString &abc);
