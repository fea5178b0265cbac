#include "assets/package/Logging.h"

Q_LOGGING_CATEGORY(assetsLog, "kelvarion.assets")
