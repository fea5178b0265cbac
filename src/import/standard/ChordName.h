#pragma once

#include <QtGlobal>

#include <vector>

QT_BEGIN_NAMESPACE
class QStringView;
QT_END_NAMESPACE

// The notes of an accompaniment that a chord name such as "F#m7/C#" stands for, the bass first: note numbers, 60 =
// middle C. None where the text names no chord ("^slow", "1", "last time").
std::vector<int> chordPitches(QStringView name);
