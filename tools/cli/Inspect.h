#pragma once

#include "Input.h"

#include <QIODevice>

// Writes the tracks and the report as one JSON object, an event at a time, so that a long song needs no memory for it.
void inspect(QVector<Track> &tracks, const std::optional<ImportReport> &report, QIODevice &out);
