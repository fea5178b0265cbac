#pragma once

#include "edit/AbcReading.h"

// The characters that a person would type at the offset for a note, or for the chord of several, of a length above 0:
// spelled in the key, with the accidentals that hold there. The reading must be that of the text.
QString enteredNotes(const AbcReading &reading, int offset, const QVector<quint32> &pitches, Ticks length);
