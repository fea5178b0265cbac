#include "audio/Logging.h"

Q_LOGGING_CATEGORY(audioLog, "kelvarion.audio")
