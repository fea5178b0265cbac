#pragma once

#include "edit/AbcReading.h"

#include <QString>

// Time put into a tune or taken out of it, as text: everything that stands behind goes along, K, M, Q and L fields too.
// Nothing else changes but ties and slurs that would lead nowhere. Bar lines decide what a measure is, also where its
// notes are too many or too few for it.
namespace MeasureChange {

enum class Obstacle {
    None,
    NoMeasure, // to be taken out
    NoBarLine, // where a measure was to begin or end
    Tuplet,    // goes on behind a bar line at which a measure was to begin or end
    Overlap,   // of notes, or rare notations: others of them would change
};

struct Result
{
    QString text; // empty where something stands in the way
    Obstacle obstacle = Obstacle::None;

    bool isDone() const { return obstacle == Obstacle::None; }
};

// A rest before the tick. Notes that are tied or sound across it become two.
Result inserted(const QString &text, const AbcReading &reading, Ticks at, Ticks length);

// What sounds between the ticks goes. The last field of each kind stays, and all else that is no music.
Result removed(const QString &text, const AbcReading &reading, Ticks from, Ticks to);

} // namespace MeasureChange
