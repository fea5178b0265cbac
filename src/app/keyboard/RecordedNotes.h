#pragma once

#include "core/Measures.h"
#include "edit/NoteEdit.h"

// What was played, on a grid that is counted from the start of each measure: starts and ends go to the nearest point,
// and no note is shorter than a step (in ticks, above 0). Notes of one pitch end where the next begins; of those that
// begin together the longest stays. By start.
QVector<NoteSpec> onGrid(const QVector<NoteSpec> &played, const Measures &measures, Ticks step);
