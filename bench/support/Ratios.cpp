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
    for (const auto &ratio : ratios) {
        if (!reporter.rates.count(ratio.ours) || !reporter.rates.count(ratio.theirs))
            continue;
        const double figure = reporter.rates[ratio.ours] / reporter.rates[ratio.theirs];
        std::printf("%s / %s = %.2f (gate %.2f, aim %.2f)\n", ratio.ours.c_str(), ratio.theirs.c_str(), figure,
                    ratio.gate, ratio.aim);
        isGood = isGood && figure >= ratio.gate;
    }
    for (const auto &limit : limits) {
        const auto counter = reporter.counters.find({limit.benchmark, limit.counter});
        if (counter == reporter.counters.end())
            continue;
        std::printf("%s: %s = %.3g (gate %.3g to %.3g)\n", limit.benchmark.c_str(), limit.counter.c_str(),
                    counter->second, limit.least, limit.most);
        isGood = isGood && counter->second >= limit.least && counter->second <= limit.most;
    }
    return isGood ? 0 : 1;
}
