#include "base/SystemFiles.h"

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <fcntl.h>
#include <string>
#include <sys/stat.h>
#include <system_error>
#include <unistd.h>

namespace {

[[noreturn]] void fail()
{
    throw std::system_error(errno, std::generic_category());
}

std::intptr_t opened(const SystemFiles::Path &path, int flags)
{
    const int descriptor = open(path.c_str(), flags | O_CLOEXEC, 0666);
    if (descriptor < 0)
        fail();
    return descriptor;
}

// How the system calls an open file that has no name.
std::string linkTo(std::intptr_t descriptor)
{
    return "/proc/self/fd/" + std::to_string(descriptor);
}

// Where the system cannot move without replacing, an empty file keeps the place.
bool moveToReserved(const SystemFiles::Path &target, const SystemFiles::Path &replacement)
{
    const int reserved = open(target.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0666);
    if (reserved < 0 && errno == EEXIST)
        return false;
    if (reserved < 0)
        fail();
    close(reserved);
    try {
        SystemFiles::moveOver(target, replacement);
    } catch (...) {
        unlink(target.c_str());
        throw;
    }
    return true;
}

} // namespace

namespace SystemFiles {

OpenFile OpenFile::createNew(const Path &path)
{
    return OpenFile(opened(path, O_WRONLY | O_CREAT | O_EXCL));
}

OpenFile OpenFile::openExisting(const Path &path)
{
    return OpenFile(opened(path, O_RDONLY)); // which is enough to synchronise it
}

std::optional<OpenFile> OpenFile::createUnnamed(const Path &folder)
{
#ifdef O_TMPFILE
    const int descriptor = open(folder.c_str(), O_WRONLY | O_TMPFILE | O_CLOEXEC, 0666);
    if (descriptor >= 0) {
        OpenFile file(descriptor);
        static const bool hasLinks = access(linkTo(descriptor).c_str(), F_OK) == 0;
        return hasLinks ? std::optional(std::move(file)) : std::nullopt;
    }
#endif
    return std::nullopt; // whatever else is wrong is told when it gets a name
}

OpenFile::~OpenFile()
{
    if (handle_ != none)
        close(int(handle_));
}

void OpenFile::write(std::string_view bytes) const
{
    while (!bytes.empty()) {
        const auto count = ::write(int(handle_), bytes.data(), bytes.size());
        if (count < 0 && errno != EINTR)
            fail();
        bytes.remove_prefix(std::size_t(std::max<ssize_t>(count, 0)));
    }
}

void OpenFile::beginSynchronising() const
{
#ifdef SYNC_FILE_RANGE_WRITE
    sync_file_range(int(handle_), 0, 0, SYNC_FILE_RANGE_WRITE); // where it cannot be, synchronise() does all
#endif
}

void OpenFile::synchronise() const
{
    SystemFiles::synchronise(int(handle_));
}

void OpenFile::takePermissionsOf(const Path &replaced) const
{
    struct stat old = {};
    if (stat(replaced.c_str(), &old) == 0 && fchmod(int(handle_), old.st_mode & 07777) != 0)
        fail();
}

bool OpenFile::giveName(const Path &path) const
{
    if (linkat(AT_FDCWD, linkTo(handle_).c_str(), AT_FDCWD, path.c_str(), AT_SYMLINK_FOLLOW) == 0)
        return true;
    if (errno != EEXIST)
        fail();
    return false;
}

bool isThere(const Path &path)
{
    struct stat state = {};
    return lstat(path.c_str(), &state) == 0;
}

void moveOver(const Path &target, const Path &replacement)
{
    if (rename(replacement.c_str(), target.c_str()) != 0)
        fail();
}

bool moveToNew(const Path &target, const Path &replacement)
{
#ifdef RENAME_NOREPLACE
    if (renameat2(AT_FDCWD, replacement.c_str(), AT_FDCWD, target.c_str(), RENAME_NOREPLACE) == 0)
        return true;
    if (errno == EEXIST)
        return false;
    const bool isUnknown = errno == EINVAL || errno == ENOSYS; // to the file system, or to the system
    if (!isUnknown)
        fail();
#endif
    return moveToReserved(target, replacement);
}

void synchroniseFolder(const Path &folder)
{
    const auto descriptor = int(opened(folder, O_RDONLY | O_DIRECTORY));
    const bool isDone = fsync(descriptor) == 0;
    const int error = errno;
    close(descriptor);
    if (!isDone)
        throw std::system_error(error, std::generic_category());
}

void synchronise(int descriptor)
{
    if (fsync(descriptor) != 0)
        fail();
}

std::optional<unsigned> userId()
{
    return geteuid();
}

} // namespace SystemFiles
