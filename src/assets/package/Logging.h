#pragma once

#include <QLoggingCategory>

// Packages, items, tunings and icons that could not be read as they stand.
Q_DECLARE_LOGGING_CATEGORY(assetsLog)
