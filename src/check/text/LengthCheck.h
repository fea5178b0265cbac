#pragma once

#include "check/text/TextCheck.h"

// A text that is longer than the limit, and the unit length that would make it shortest. [any]
QVector<Finding> checkLength(const TextCheck &part, const CheckOptions &options);
