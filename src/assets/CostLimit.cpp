#include "assets/CostLimit.h"

#ifdef Q_OS_WIN
#include <windows.h>
#else
#include <ctime>
#endif

namespace {
double threadSeconds()
{
#ifdef Q_OS_WIN
    FILETIME created, ended, kernel, user;
    if (GetThreadTimes(GetCurrentThread(), &created, &ended, &kernel, &user) == 0)
        return 0;
    const auto ticks = [](const FILETIME &time) { return double(time.dwHighDateTime) * 0x1p32 + time.dwLowDateTime; };
    return (ticks(kernel) + ticks(user)) * 1e-7;
#else
    timespec time = {};
    clock_gettime(CLOCK_THREAD_CPUTIME_ID, &time);
    return double(time.tv_sec) + double(time.tv_nsec) * 1e-9;
#endif
}
} // namespace

CostLimit::CostLimit(qint64 packageSize)
    : memoryLeft_(64.0 * double(packageSize)), end_(threadSeconds() + 0.5 + double(packageSize) / 1024 * 0.005)
{
}

bool CostLimit::isReached() const
{
    return memoryLeft_ < 0 || threadSeconds() > end_;
}
