#pragma once

#include "assets/ProgramInstruments.h"

#include <QStringList>

#include <optional>

// The General MIDI program, as ProgramInstruments counts them, of a part: the one that its instrument was chosen for,
// else the one whose name the instrument has, or, of the same kind, a title ("Track 3 - Acoustic Bass"), else a usual
// one of the instrument's kind, or of a title's. Nothing when none of them says anything. [any]
std::optional<int> guessProgram(const QString &instrument, const QStringList &titles,
                                const ProgramInstruments &chosen = {});
