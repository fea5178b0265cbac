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
