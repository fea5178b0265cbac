#pragma once

#include <algorithm>
#include <atomic>
#include <cerrno>
#include <cstdarg>
#include <cstdint>
#include <cstdio>
#include <dlfcn.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

// The system calls that saving is made of, replaced for this program: the one with the armed number fails. For one
// source of a program, which links ${CMAKE_DL_LIBS}.
namespace faults {

inline std::atomic<int> callsUntilFault = 0; // 0: none is armed
inline size_t longestWrite = SIZE_MAX;
inline std::atomic<int> fsyncMs = 0; // of a slow disk

inline bool isDue()
{
    int left = callsUntilFault;
    while (left > 0 && !callsUntilFault.compare_exchange_weak(left, left - 1)) { // another thread called
    }
    if (left != 1)
        return false;
    errno = EIO;
    return true;
}

template<typename Function>
Function original(const char *name)
{
    return reinterpret_cast<Function>(dlsym(RTLD_NEXT, name));
}

} // namespace faults

extern "C" {

int open(const char *path, int flags, ...)
{
    va_list arguments;
    va_start(arguments, flags);
    const auto mode = va_arg(arguments, mode_t);
    va_end(arguments);
    return faults::isDue() ? -1 : faults::original<int (*)(const char *, int, ...)>("open")(path, flags, mode);
}

#ifdef __GLIBC__
int open64(const char *path, int flags, ...) // what Qt calls
{
    va_list arguments;
    va_start(arguments, flags);
    const auto mode = va_arg(arguments, mode_t);
    va_end(arguments);
    return faults::isDue() ? -1 : faults::original<int (*)(const char *, int, ...)>("open64")(path, flags, mode);
}
#endif

ssize_t write(int descriptor, const void *bytes, size_t size)
{
    static const auto original = faults::original<ssize_t (*)(int, const void *, size_t)>("write");
    return faults::isDue() ? -1 : original(descriptor, bytes, std::min(size, faults::longestWrite));
}

int fsync(int descriptor)
{
    usleep(useconds_t(faults::fsyncMs) * 1000);
    return faults::isDue() ? -1 : faults::original<int (*)(int)>("fsync")(descriptor);
}

int rename(const char *from, const char *to) noexcept
{
    return faults::isDue() ? -1 : faults::original<int (*)(const char *, const char *)>("rename")(from, to);
}

#ifdef RENAME_NOREPLACE
int renameat2(int fromFolder, const char *from, int toFolder, const char *to, unsigned flags) noexcept
{
    using Function = int (*)(int, const char *, int, const char *, unsigned);
    return faults::isDue() ? -1 : faults::original<Function>("renameat2")(fromFolder, from, toFolder, to, flags);
}
#endif

int linkat(int fromFolder, const char *from, int toFolder, const char *to, int flags) noexcept
{
    using Function = int (*)(int, const char *, int, const char *, int);
    return faults::isDue() ? -1 : faults::original<Function>("linkat")(fromFolder, from, toFolder, to, flags);
}

int fchmod(int descriptor, mode_t mode) noexcept
{
    return faults::isDue() ? -1 : faults::original<int (*)(int, mode_t)>("fchmod")(descriptor, mode);
}
}
