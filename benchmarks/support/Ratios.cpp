#include "support/Ratios.h"

#include <cstdio>
#include <map>
#include <sched.h>

namespace {

// Shows the usual table, and remembers the rates and counters.
class RateReporter : public benchmark::ConsoleReporter
{
public:
    void ReportRuns(const std::vector<Run> &runs) override
    {
        for (const auto &run : runs) {
            allRan = allRan && !run.error_occurred;
            for (const auto &[name, counter] : run.counters)
                counters[{run.run_name.function_name, name}] = counter.value;
            for (const char *counter : {"items_per_second", "bytes_per_second"}) {
                const auto rate = run.counters.find(counter);
                if (rate != run.counters.end())
                    rates[run.run_name.function_name] = rate->second.value;
            }
        }
        ConsoleReporter::ReportRuns(runs);
    }

    std::map<std::string, double> rates;
    std::map<std::pair<std::string, std::string>, double> counters; // by benchmark and name
    bool allRan = true;
};

void pinToOneCore()
{
    cpu_set_t cores;
    CPU_ZERO(&cores);
    CPU_SET(0, &cores);
    if (sched_setaffinity(0, sizeof cores, &cores) != 0)
        std::perror("could not pin the benchmark to one core");
}

} // namespace

int runBenchmarks(int argc, char **argv, const std::vector<Ratio> &ratios, const std::vector<Limit> &limits)
{
    benchmark::Initialize(&argc, argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv))
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
            isGood &= report({benchmark + ": " + counter, found->second, gate, {}, better});
    }
    return isGood ? 0 : 1;
}
