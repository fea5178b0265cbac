#pragma once

#include "assets/Instrument.h"

// Where a tuning's sample names lead.
struct SampleBase
{
    QString prefix;    // stands before every sample name, with a slash at its end
    QString directory; // loose files only: names that lead out of this directory are left out
    QString mod = {};  // files of a mod only: so are links that lead out of this directory
};

// Reads the tuning of an instrument kind from the bytes of its tuning.config. A note without samples borrows those of
// the next lower note that has some (of the lowest when there is none) at the rate of their frequencies; one all of
// whose names were left out is left out too. Throws a QString when the bytes are no tuning, hold a note that can borrow
// none, or name more than 2048 samples.
Tuning readTuning(const QByteArray &bytes, const QString &kind, const SampleBase &base);
