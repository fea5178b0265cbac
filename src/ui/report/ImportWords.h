#pragma once

#include "import/PartReport.h"

#include <QString>

// What an import found, in words.

// As a row of a list has it: "Notes too soft".
QString wordsOf(ImportFinding finding);

// All that there is to say of an import in one line: "341 of 850 notes were struck again and lost, 12 too soft, worst
// shift 9 ms". Empty when nothing happened.
QString lineOf(const PartReport &sum);
