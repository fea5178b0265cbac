#pragma once

#include "assets/InstrumentSet.h"

#include <optional>

// What a guess went by: the instrument's own name, a word for one of its kind, or the notes that it can play.
enum class GuessBasis { Name, Kind, Range };

struct InstrumentGuess
{
    QString name; // of the catalogue
    GuessBasis basis;
};

// The instrument for a part that names none. Its titles are tried in their order, such as "Track 3 - Acoustic Bass"
// with the name of a General MIDI program, or "Percussion". An instrument wins whose name stands in a title; then one
// of the same kind, or of a kind that sounds like it; then the one that can play most of the notes. Of several, it is
// the one that can play more, then the first by name. Percussion is only played by percussion, and nothing else is;
// nothing when that leaves no instrument.
std::optional<InstrumentGuess> guessInstrument(const QStringList &titles, const QMap<quint32, int> &pitchCounts,
                                               const InstrumentSet &instruments);

// The General MIDI program that is usual for instruments of the kind that the name, or title, has a word for, as
// ProgramInstruments counts them; nothing when it has none.
std::optional<int> usualProgram(const QString &name);
