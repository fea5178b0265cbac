#include "base/SystemFiles.h"

#include <algorithm>
#include <io.h>
#include <system_error>
#include <windows.h>

namespace {

[[noreturn]] void fail(DWORD error = GetLastError())
{
    throw std::system_error(int(error), std::system_category());
}

HANDLE asHandle(std::intptr_t number)
{
    return reinterpret_cast<HANDLE>(number);
}

// Others may read it meanwhile, and remove it.
std::intptr_t opened(const SystemFiles::Path &path, DWORD disposition)
{
    const auto handle = CreateFileW(path.c_str(), GENERIC_WRITE, FILE_SHARE_READ | FILE_SHARE_DELETE, nullptr,
                                    disposition, FILE_ATTRIBUTE_NORMAL, nullptr);
    if (handle == INVALID_HANDLE_VALUE)
        fail();
    return reinterpret_cast<std::intptr_t>(handle);
}

// Whoever looks through every new file, as guards against viruses do, holds it for a moment.
DWORD move(const SystemFiles::Path &target, const SystemFiles::Path &replacement, DWORD flags)
{
    constexpr int mostTries = 20;
    constexpr DWORD waitMs = 25;
    for (int tries = 1;; ++tries) {
        if (MoveFileExW(replacement.c_str(), target.c_str(), flags | MOVEFILE_WRITE_THROUGH) != 0)
            return ERROR_SUCCESS;
        const auto error = GetLastError();
        if (error != ERROR_SHARING_VIOLATION || tries == mostTries)
            return error;
        Sleep(waitMs);
    }
}

} // namespace

namespace SystemFiles {

OpenFile OpenFile::createNew(const Path &path)
{
    return OpenFile(opened(path, CREATE_NEW));
}

OpenFile OpenFile::openExisting(const Path &path)
{
    return OpenFile(opened(path, OPEN_EXISTING));
}

std::optional<OpenFile> OpenFile::createUnnamed(const Path &)
{
    return std::nullopt;
}

bool OpenFile::giveName(const Path &) const
{
    return false; // there is none without
}

OpenFile::~OpenFile()
{
    if (handle_ != none)
        CloseHandle(asHandle(handle_));
}

void OpenFile::write(std::string_view bytes) const
{
    constexpr std::size_t mostAtOnce = 1 << 24;
    while (!bytes.empty()) {
        DWORD count = 0;
        if (WriteFile(asHandle(handle_), bytes.data(), DWORD(std::min(bytes.size(), mostAtOnce)), &count, nullptr) == 0)
            fail();
        bytes.remove_prefix(count);
    }
}

void OpenFile::beginSynchronising() const {}

void OpenFile::synchronise() const
{
    if (FlushFileBuffers(asHandle(handle_)) == 0)
        fail();
}

// They are those of the folder.
void OpenFile::takePermissionsOf(const Path &) const {}

bool isThere(const Path &path)
{
    return GetFileAttributesW(path.c_str()) != INVALID_FILE_ATTRIBUTES; // of a link itself
}

void moveOver(const Path &target, const Path &replacement)
{
    if (const auto error = move(target, replacement, MOVEFILE_REPLACE_EXISTING); error != ERROR_SUCCESS)
        fail(error);
}

bool moveToNew(const Path &target, const Path &replacement)
{
    const auto error = move(target, replacement, 0);
    if (error == ERROR_ALREADY_EXISTS || error == ERROR_FILE_EXISTS)
        return false;
    if (error != ERROR_SUCCESS)
        fail(error);
    return true;
}

void synchroniseFolder(const Path &) {} // each move did it

void synchronise(int descriptor)
{
    if (FlushFileBuffers(asHandle(_get_osfhandle(descriptor))) == 0)
        fail();
}

std::optional<unsigned> userId()
{
    return std::nullopt;
}

} // namespace SystemFiles
