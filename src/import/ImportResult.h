#pragma once

#include "core/Track.h"
#include "import/PartReport.h"

#include <QVector>

struct ImportResult
{
    QVector<Track> tracks;     // normalised, in the order of the source
    QVector<PartReport> parts; // of the tracks, one each
    PartReport elsewhere;      // what was found where no note became part of a track
    ImportReport report;       // the sum
};

// What was moved in the part of this number. In the order of the parts, as the sum is one of rounded numbers.
inline void addShifts(ImportResult &result, int part, const Shifts &shifts)
{
    result.parts[part].shifts.add(shifts);
    result.report.shifts.add(shifts);
}
