#pragma once

#include "support/Figures.h"

#include <benchmark/benchmark.h>
#include <string>
#include <vector>

// One figure that a benchmark program answers for: how many times as many items (or bytes) a second `ours` gets through
// as `theirs`. Both are names of benchmarks of the same run.
struct Ratio
{
    std::string ours;
    std::string theirs;
    double gate; // the least that is good enough
    double aim;
};

// A counter of one benchmark, and the worst of it that is good enough.
struct Limit
{
    std::string benchmark;
    std::string counter;
    Better better;
    double gate;
};

// The main function of a benchmark program: pins it to one core, runs the benchmarks that the command line asks for and
// reports the ratios and counters of those that ran. Returns 1 when one misses its gate, or when a benchmark could not
// be run.
int runBenchmarks(int argc, char **argv, const std::vector<Ratio> &ratios, const std::vector<Limit> &limits = {});
