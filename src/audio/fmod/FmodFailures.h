#pragma once

#include "audio/fmod/FmodApi.h"
#include "audio/sound/AudioResult.h"

#include <atomic>
#include <utility>

// What an engine's owner hears of calls that failed. [audio]
class FmodFailures
{
public:
    // As the result of the operation that made the call.
    AudioResult told(fmodlib::Result result)
    {
        if (result == 0)
            return AudioResult::Ok;
        latest_ = result;
        return AudioResult::LibraryError;
    }
    // Of a call whose operation goes on without it: the first is told by the next update. Whether it worked.
    bool note(fmodlib::Result result)
    {
        if (noted_ == 0)
            noted_ = result;
        return result == 0;
    }
    AudioResult tellNoted() { return told(std::exchange(noted_, 0)); }

    const char *latestText() const { return fmodlib::textOf(latest_); } // [any]

private:
    std::atomic<fmodlib::Result> latest_{0};
    fmodlib::Result noted_ = 0;
};
