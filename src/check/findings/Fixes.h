#pragma once

#include "check/findings/Finding.h"

#include <optional>

// The changes of all fixes together, in the order of the text; of two that touch the same characters the second waits
// for the next time. kind: only of its findings. [any]
QVector<TextChange> combinedFixes(const QVector<Finding> &findings, std::optional<FindingKind> kind = {});
