#pragma once

#include <QLoggingCategory>

// Fields and texts of a song that could not be read as they stand.
Q_DECLARE_LOGGING_CATEGORY(notationLog)
