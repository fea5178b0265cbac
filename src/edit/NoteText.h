#pragma once

#include "core/Ticks.h"

#include <QString>

class Measures;

// Notes in words, as the piano roll shows them.
namespace NoteText {

// "C4" for middle C. Black keys are spelled as the key does: "B♭3", "F♯5". keyRow: row of the key table.
QString pitch(int pitch, quint32 keyRow);

// A fraction of a whole note in lowest terms: "1/8", "3/16", "2".
QString length(Ticks length);

// "Measure 3, beat 2", with the ticks after the beat when there are some: "Measure 3, beat 2 + 1/32".
QString position(Ticks tick, const Measures &measures);

} // namespace NoteText
