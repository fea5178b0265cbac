#pragma once

#include "core/Measures.h"

#include <QString>

// The grid that edits snap to: the track's unit length, multiples, divisions and triplets of it, counted from the start
// of each measure. A value.
class RollSnap
{
public:
    // Choices are counted from 0; the last one is none: every tick.
    static int choiceCount();
    static constexpr int unitChoice = 2;

    int choice() const { return choice_; }
    void setChoice(int choice) { choice_ = choice; }

    // In ticks, above 0.
    void setUnit(Ticks unit) { unit_ = unit; }

    Ticks step() const { return stepOf(choice_); } // at least 1
    bool isOff() const { return choice_ == choiceCount() - 1; }

    // "1/8", "1/16 triplet", "Off".
    QString label(int choice) const;

    // The grid point at or before the tick, and the nearest one. The end of a measure is a grid point too.
    Ticks floor(Ticks tick, const Measures &measures) const;
    Ticks nearest(Ticks tick, const Measures &measures) const;

private:
    Ticks stepOf(int choice) const;

    int choice_ = unitChoice;
    Ticks unit_ = ticksPerWholeNote / 8;
};
