#pragma once

#include "packages/Files.h"

// Everything that one instrument of the demo game consists of: its item, icon, tuning and samples, under the paths
// where the game looks for them. The kind is "drums" or that of a melodic instrument. Throws a QString.
Files instrumentFiles(const QString &kind);
