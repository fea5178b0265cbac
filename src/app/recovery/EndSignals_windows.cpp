#include "app/recovery/EndSignals.h"

// Windows ends programs with windows by messages, which Qt tells as the end of the session.
void onEndSignals(QObject &, const std::function<void()> &) {}
