#pragma once

#include "core/Measures.h"
#include "ui/SpokenWidget.h"

// A position as assistive programs read and set it: as the number of its measure, from 1. On the interface thread.
namespace SpokenPosition {

QString text(const Measures &measures, Ticks position); // "Measure 12, beat 3"

// length: where the last measure ends.
SpokenWidget::Range range(const Measures &measures, Ticks position, Ticks length);

// Where a measure begins.
Ticks tick(const Measures &measures, double number);

} // namespace SpokenPosition
