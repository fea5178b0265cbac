#pragma once

#include "edit/AbcReading.h"

#include <optional>

// Time put into a tune or taken out of it, as text: everything behind goes along, K, M, Q and L fields too. The new
// text, or nothing where rare notations make that impossible.
namespace MeasureChange {

// A rest before the tick. Notes that sound across it become two.
std::optional<QString> inserted(const QString &text, const AbcReading &reading, Ticks at, Ticks length);

// Notes that begin from one tick up to the other go, notes before it end there. The last field of each kind stays.
std::optional<QString> removed(const QString &text, const AbcReading &reading, Ticks from, Ticks to);

} // namespace MeasureChange
