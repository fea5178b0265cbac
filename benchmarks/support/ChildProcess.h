#pragma once

#include <QStringList>

// Runs a program whose work is measured against ours. POSIX only, like the programs that the benchmarks compare with.
struct ChildProcess
{
    bool succeeded = false; // ended by itself with status 0
    double cpuSeconds = 0;  // user and system time
    double userSeconds = 0; // without what the system did for it, such as writing files

    // Waits for the end of the program. Its output is thrown away.
    static ChildProcess run(const QStringList &command);

    // The least of several runs: what it costs to start the program and do next to nothing.
    static double startSeconds(const QStringList &command);
};
