#include "core/Logging.h"

Q_LOGGING_CATEGORY(notationLog, "kelvarion.notation")
