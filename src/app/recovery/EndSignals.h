#pragma once

#include <QObject>

#include <functional>

// Has the signals by which a system, a desktop or a terminal ends programs call this as an event of the thread, for as
// long as the context is there. Once in a program. Where there are no such signals it does nothing. [ui]
void onEndSignals(QObject &context, const std::function<void()> &end);
