#include "support/ChildProcess.h"

#include <QFile>

#include <algorithm>
#include <fcntl.h>
#include <limits>
#include <spawn.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <vector>

namespace {

double seconds(const timeval &time)
{
    return double(time.tv_sec) + double(time.tv_usec) * 1e-6;
}

} // namespace

ChildProcess ChildProcess::run(const QStringList &command)
{
    std::vector<QByteArray> words;
    for (const auto &word : command)
        words.push_back(QFile::encodeName(word));
    std::vector<char *> arguments;
    for (auto &word : words)
        arguments.push_back(word.data());
    arguments.push_back(nullptr);

    posix_spawn_file_actions_t actions;
    posix_spawn_file_actions_init(&actions);
    posix_spawn_file_actions_addopen(&actions, 1, "/dev/null", O_WRONLY, 0);
    posix_spawn_file_actions_adddup2(&actions, 1, 2);
    pid_t child = 0;
    const int failure = posix_spawnp(&child, arguments[0], &actions, nullptr, arguments.data(), environ);
    posix_spawn_file_actions_destroy(&actions);
    if (failure != 0)
        return {};

    int status = 0;
    rusage usage = {};
    wait4(child, &status, 0, &usage);
    return {WIFEXITED(status) && WEXITSTATUS(status) == 0, seconds(usage.ru_utime) + seconds(usage.ru_stime),
            seconds(usage.ru_utime)};
}

double ChildProcess::startSeconds(const QStringList &command)
{
    auto least = std::numeric_limits<double>::max();
    for (int i = 0; i < 20; ++i)
        least = std::min(least, run(command).cpuSeconds);
    return least;
}
