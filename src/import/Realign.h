#pragma once

#include "core/Track.h"
#include "import/ImportReport.h"

#include <QVector>

// Rhythmic grids to snap times to. A grid of denominator d has a point every 1/d of a whole note; of two grids whose
// points are equally near, the earlier in the list wins, and of two points of one grid the earlier point.
class SnapGrid
{
public:
    // Denominators from 1 to 40320. An empty list snaps to whole notes.
    explicit SnapGrid(const QVector<quint32> &denominators);

    // 128ths and the 96th triplets, 80th quintuplets, 112th septuplets and 72nd nonuplets.
    static const SnapGrid &quick();

    Ticks snap(Ticks time) const;

    // The finest step: no note is made shorter.
    Ticks minimumLength() const { return minimumLength_; }

private:
    Ticks nearestPoint(Ticks time) const;

    QVector<Ticks> steps_;
    Ticks minimumLength_;
    // The quick grid repeats after 5040 ticks; where every step divides that, its points are looked up.
    static constexpr Ticks period = 5040;
    QVector<qint16> periodPoints_;
};

// The track with the starts of all events and the ends of its notes on the grid. No note becomes shorter than the
// grid's finest step. Adds the notes that moved to the shifts.
Track realign(Track track, const SnapGrid &grid, Shifts *shifts = nullptr);
