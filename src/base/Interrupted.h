#pragma once

#include <stop_token>

// Thrown out of long work that was asked to stop before its end.
struct Interrupted
{
};

inline void throwIfStopped(const std::stop_token &stop)
{
    if (stop.stop_requested())
        throw Interrupted();
}
