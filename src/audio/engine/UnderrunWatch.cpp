#include "audio/engine/UnderrunWatch.h"

#include <utility>

bool UnderrunWatch::ask(Clock::time_point now, Clock::duration buffer)
{
    if (due_ == Clock::time_point() || now < due_) {
        due_ = now + buffer;
        late_ = 0;
        return false;
    }
    constexpr int certain = 4;
    const auto lag = now - due_;
    late_ = lag > buffer / 2 ? late_ + 1 : 0;
    const bool ranDry = late_ == certain;
    if (ranDry)
        late_ = 0;
    due_ = ranDry ? now + buffer : due_ + buffer + lag / 8;
    return ranDry;
}
