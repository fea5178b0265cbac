#pragma once

#include "assets/InstrumentSet.h"
#include "check/text/TextCheck.h"

// What is wrong with a part on the instrument that plays it: a name of the catalogue, empty for the first one. [any]
QVector<Finding> checkInstrument(const TextCheck &part, const QString &instrument, const InstrumentSet &instruments,
                                 const CheckOptions &options = {});
