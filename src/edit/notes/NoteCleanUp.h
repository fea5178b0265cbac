#pragma once

#include "core/Measures.h"
#include "core/Track.h"
#include "edit/NoteEdit.h"

#include <functional>

// What cleans up notes as they come from a keyboard or a MIDI file. Notes are named by their index in the track's
// events, sorted. Each edit leaves what it need not change.
namespace NoteCleanUp {

// Notes that sound across the tick become two.
NoteEdit split(const Track &track, const QVector<int> &notes, Ticks at);

// Of each pitch, those that follow each other among the notes become one, from the first start to the last end.
NoteEdit join(const Track &track, const QVector<int> &notes);

// Each note ends where the next of them begins; the last ones stay.
NoteEdit legato(const Track &track, const QVector<int> &notes);

// numerator / denominator of their lengths, at least one tick.
NoteEdit scaleLengths(const Track &track, const QVector<int> &notes, int numerator, int denominator);

// Starts move towards the grid by so many percent of their distance, ends too, so that lengths come out even. No note
// becomes shorter than half a step, unless it was.
using Grid = std::function<Ticks(Ticks)>; // the point that is nearest to a tick
NoteEdit quantise(const Track &track, const QVector<int> &notes, const Grid &grid, Ticks step, int strength);

// Selections, made of others.
QVector<int> inverted(const Track &track, const QVector<int> &notes);
QVector<int> ofSamePitch(const Track &track, const QVector<int> &notes);
QVector<int> betweenTheirPitches(const Track &track, const QVector<int> &notes);

} // namespace NoteCleanUp
