// Files as they are saved, where Qt cannot be had: created once, replaced in one step, kept. In a folder that is given,
// with names that are no ASCII. Prints what fails.
#include "base/SystemFiles.h"

#include <cstdio>
#include <fstream>
#include <iterator>
#include <string>
#include <system_error>

namespace {

using SystemFiles::OpenFile;
using SystemFiles::Path;

int failures = 0;

void expect(bool isRight, const char *what)
{
    std::printf("%s: %s\n", isRight ? "ok" : "FAILED", what);
    failures += !isRight;
}

std::string contents(const Path &path)
{
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

void create(const Path &path, std::string_view bytes)
{
    const auto file = OpenFile::createNew(path);
    file.write(bytes);
    file.beginSynchronising();
    file.synchronise();
}

template<typename Work>
std::error_condition failureOf(Work work)
{
    try {
        work();
    } catch (const std::system_error &error) {
        return error.code().default_error_condition();
    }
    return {};
}

void check(const Path &folder)
{
    const auto target = folder / u"Flöte – 笛.abc", replacement = folder / u"Flöte – 笛.abc~1.saving";
    const std::string old = "X:1\r\n\n\x1A", fresh(3'000'000, 'C');

    expect(SystemFiles::moveToNew(target, (create(replacement, old), replacement)), "takes a free place");
    expect(contents(target) == old && !std::filesystem::exists(replacement), "holds the bytes as they are");
    expect(failureOf([&] { create(target, fresh); }) == std::errc::file_exists, "is created once");
    create(replacement, fresh);
    expect(!SystemFiles::moveToNew(target, replacement) && contents(target) == old, "keeps what is there");
    OpenFile::openExisting(replacement).takePermissionsOf(target);
    SystemFiles::moveOver(target, replacement);
    SystemFiles::synchroniseFolder(folder);
    expect(contents(target) == fresh && !std::filesystem::exists(replacement), "is replaced");
    expect(failureOf([&] { create(folder / "none" / "a", old); }) == std::errc::no_such_file_or_directory,
           "needs a folder");
    {
        std::ifstream reader(target); // a player's program that reads it
        create(replacement, old);
        const auto failure = failureOf([&] { SystemFiles::moveOver(target, replacement); });
        expect(contents(target) == (failure ? fresh : old), "is whole while somebody reads it");
    }
}

} // namespace

int main(int argc, char **argv)
{
    if (argc != 2)
        return 2;
    const Path folder(argv[1]);
    std::filesystem::remove_all(folder);
    std::filesystem::create_directories(folder);
    check(folder);
    return failures == 0 ? 0 : 1;
}
