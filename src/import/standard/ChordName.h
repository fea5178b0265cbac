#pragma once

#include <QStringView>
#include <QVarLengthArray>

// The notes of an accompaniment that a chord name such as "F#m7/C#" stands for, the bass first: note numbers, 60 =
// middle C. None where the text names no chord ("^slow", "1", "last time").
QVarLengthArray<int, 5> chordPitches(QStringView name);
