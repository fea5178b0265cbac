#pragma once

#include "core/Measures.h"

#include <QString>

// The lengths that notes and grids are chosen from: whole notes to 64ths, then triplets. Counted from 0.
namespace RollLengths {

int count();
Ticks ticks(int choice);   // at least 1
QString label(int choice); // "1/8", "1/16 triplet"
// The longest one, no triplet, that is not longer; the shortest where all are.
int atMost(Ticks length);
// Of one that may be dotted or none of them: "1/8", "1/8 dotted", "5/16".
QString labelOf(Ticks length);
bool isDotted(Ticks length);
bool isTriplet(Ticks length);
// The length dotted or as a triplet, or without that where it was.
Ticks withDotToggled(Ticks length);
Ticks withTripletToggled(Ticks length);

} // namespace RollLengths

// The grid that edits snap to, counted from the start of each measure. A value.
class RollSnap
{
public:
    // Those of RollLengths; the last one is none: every tick.
    static int choiceCount() { return RollLengths::count() + 1; }

    int choice() const { return choice_; }
    void setChoice(int choice);

    // The track's unit length is the grid until one is chosen. Above 0.
    void setUnit(Ticks unit);

    Ticks step() const { return isOff() ? 1 : RollLengths::ticks(choice_); } // at least 1
    bool isOff() const { return choice_ == choiceCount() - 1; }

    static QString label(int choice); // also "Off"

    // The grid point at or before the tick, and the nearest one. The end of a measure is a grid point too.
    Ticks floor(Ticks tick, const Measures &measures) const;
    Ticks nearest(Ticks tick, const Measures &measures) const;

private:
    int choice_ = RollLengths::atMost(ticksPerWholeNote / 8);
    bool isChosen_ = false;
};
