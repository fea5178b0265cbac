#pragma once

#include "check/SongCheck.h"

// The changes of a part's text that give it other tempos, while every note keeps its place in the music: its own Q:
// fields behind the header go, and the others stand in front of what begins at their time, or cut the note or rest that
// sounds then. None where a time is in what cannot be cut: a tuplet, a broken rhythm, a tied chord, a chord with a
// length of its own, a rest of measures, a measure that is not full. [any]
std::optional<QVector<TextChange>> tempoFix(const QString &text, const std::vector<PartFacts::Tempo> &tempos,
                                            Ticks length);
