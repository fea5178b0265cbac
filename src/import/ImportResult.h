#pragma once

#include "core/Track.h"
#include "import/ImportReport.h"

#include <QVector>

struct ImportResult
{
    QVector<Track> tracks; // normalised, in the order of the source
    ImportReport report;
};
