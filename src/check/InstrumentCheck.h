#pragma once

#include "assets/InstrumentSet.h"
#include "check/text/TextCheck.h"

// What is wrong with a part on the instrument that plays it: a name of the catalogue, empty for the first one. [any]
// Notes without a sample have fixes where the check of the text was told of octavesToSamples().
QVector<Finding> checkInstrument(const TextCheck &part, const QString &instrument, const InstrumentSet &instruments,
                                 const CheckOptions &options = {});

// Those of notes without a sample: to the nearest octave with one, where it is the only one, and not of drums, which
// are other drums an octave away. [any]
OctaveMoves octavesToSamples(const QString &instrument, const InstrumentSet &instruments, const CheckOptions &options);
