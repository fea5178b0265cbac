#pragma once

#include <QLoggingCategory>

// Engine failures (critical) and samples that cannot sound (warning). [any]
Q_DECLARE_LOGGING_CATEGORY(audioLog)
