#pragma once

#include <cstdint>
#include <filesystem>
#include <optional>
#include <string_view>
#include <utility>

// What saving files asks of the operating system, without Qt; a source for each system. All of it throws
// std::system_error. [any]
namespace SystemFiles {

using Path = std::filesystem::path;

// A file that is open to be written, until the end of the object.
class OpenFile
{
public:
    // Where something of that name is there it is left alone, and std::errc::file_exists thrown.
    static OpenFile createNew(const Path &path);
    static OpenFile openExisting(const Path &path);
    // Without a name, which giveName() gives it once; nobody else sees it before, and nothing is left of it when the
    // program ends before. None where the system or the file system has no such files.
    static std::optional<OpenFile> createUnnamed(const Path &folder);
    OpenFile(OpenFile &&other) noexcept : handle_(std::exchange(other.handle_, none)) {}
    OpenFile &operator=(OpenFile &&) = delete;
    ~OpenFile();

    void write(std::string_view bytes) const;
    // Of many files, all at once: the disk need not wait for the one that is synchronised first.
    void beginSynchronising() const;
    // Returns when everything is on the disk.
    void synchronise() const;
    // As who replaces that file gives the new one, where the system does not do it itself; nothing where it is not
    // there.
    void takePermissionsOf(const Path &replaced) const;
    // Of one without. False when there is something of that name.
    bool giveName(const Path &path) const;

private:
    static constexpr std::intptr_t none = -1;
    explicit OpenFile(std::intptr_t handle) : handle_(handle) {}

    std::intptr_t handle_; // a descriptor, or what Windows calls a handle
};

// Something, or a link, wherever that leads.
bool isThere(const Path &path);
// In one step: whoever looks sees the old file or the new one.
void moveOver(const Path &target, const Path &replacement);
// False, and nothing is touched, when there is something of that name.
bool moveToNew(const Path &target, const Path &replacement);

// The names in a folder, where the system does not do it with each of them.
void synchroniseFolder(const Path &folder);
// An open file of the C library.
void synchronise(int descriptor);

// As whom the program runs, where files tell whose they are by a number.
std::optional<unsigned> userId();

} // namespace SystemFiles
