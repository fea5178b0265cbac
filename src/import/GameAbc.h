#pragma once

#include "core/AbcParser.h"
#include "import/PartReport.h"

// As parseAbc(), and tells what the game makes of the text that a musician would not.
Track parseAbcWithReport(const QString &text, PartReport &report, const std::stop_token &stop = {});
