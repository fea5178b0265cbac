#include "support/Ratios.h"

#include <algorithm>
#include <array>
#include <cstdio>
#include <map>
#include <sched.h>

namespace {

// Shows the usual table, and remembers counters and rates. The best of all repetitions counts: what other programs on
// the machine take away varies, and only ever takes away.
class RateReporter : public benchmark::ConsoleReporter
{
public:
    void ReportRuns(const std::vector<Run> &runs) override
    {
        for (const auto &run : runs) {
            allRan = allRan && !run.error_occurred;
            if (run.run_type == Run::RT_Aggregate)
                continue;
            for (const auto &[name, counter] : run.counters)
                counters[{run.run_name.function_name, name}].push_back(counter.value);
            for (const char *counter : {"items_per_second", "bytes_per_second"}) {
                const auto rate = run.counters.find(counter);
                if (rate != run.counters.end())
                    rates[run.run_name.function_name] = std::max(rates[run.run_name.function_name], rate->second.value);
            }
        }
        ConsoleReporter::ReportRuns(runs);
    }

    std::map<std::string, double> rates;
    std::map<std::pair<std::string, std::string>, std::vector<double>> counters; // by benchmark and name
    bool allRan = true;
};

double best(const std::vector<double> &values, Better better)
{
    const auto [least, most] = std::minmax_element(values.begin(), values.end());
    return better == Better::More ? *most : *least;
}

// The first of those that it may use.
void pinToOneCore()
{
    cpu_set_t cores;
    sched_getaffinity(0, sizeof cores, &cores);
    int core = 0;
    while (core < CPU_SETSIZE - 1 && !CPU_ISSET(core, &cores))
        ++core;
    CPU_ZERO(&cores);
    CPU_SET(core, &cores);
    if (sched_setaffinity(0, sizeof cores, &cores) != 0)
        std::perror("could not pin the benchmark to one core");
}

// The command line overrules the first few. What is compared takes turns, so that a busy moment hits both.
bool initialize(int argc, char **argv)
{
    static std::array<std::string, 3> defaults{"--benchmark_repetitions=3", "--benchmark_min_time=0.2",
                                               "--benchmark_enable_random_interleaving=true"};
    std::vector<char *> arguments(argv, argv + argc);
    for (auto &option : defaults)
        arguments.insert(arguments.begin() + 1, option.data());
    argc = int(arguments.size());
    benchmark::Initialize(&argc, arguments.data());
    return !benchmark::ReportUnrecognizedArguments(argc, arguments.data());
}

} // namespace

int runBenchmarks(int argc, char **argv, const std::vector<Ratio> &ratios, const std::vector<Limit> &limits)
{
    if (!initialize(argc, argv))
        return 2;
    pinToOneCore();
    RateReporter reporter;
    benchmark::RunSpecifiedBenchmarks(&reporter);

    bool isGood = reporter.allRan;
    for (const auto &[ours, theirs, gate, aim] : ratios) {
        if (reporter.rates.count(ours) && reporter.rates.count(theirs))
            isGood &= report({ours + " / " + theirs, reporter.rates[ours] / reporter.rates[theirs], gate, aim});
    }
    for (const auto &[benchmark, counter, better, gate] : limits) {
        const auto found = reporter.counters.find({benchmark, counter});
        if (found != reporter.counters.end())
            isGood &= report({benchmark + ": " + counter, best(found->second, better), gate, {}, better});
    }
    return isGood ? 0 : 1;
}
