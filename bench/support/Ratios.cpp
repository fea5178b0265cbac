#include "support/Ratios.h"

#include <cstdio>
#include <map>
#include <sched.h>

namespace {

// Shows the usual table, and remembers the rates.
class RateReporter : public benchmark::ConsoleReporter
{
public:
    void ReportRuns(const std::vector<Run> &runs) override
    {
        for (const auto &run : runs) {
            for (const char *counter : {"items_per_second", "bytes_per_second"}) {
                const auto rate = run.counters.find(counter);
                if (rate != run.counters.end())
                    rates[run.run_name.function_name] = rate->second.value;
            }
        }
        ConsoleReporter::ReportRuns(runs);
    }

    std::map<std::string, double> rates;
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

int runBenchmarks(int argc, char **argv, const std::vector<Ratio> &ratios)
{
    benchmark::Initialize(&argc, argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv))
        return 2;
    pinToOneCore();
    RateReporter reporter;
    benchmark::RunSpecifiedBenchmarks(&reporter);

    bool isGood = true;
    for (const auto &ratio : ratios) {
        if (!reporter.rates.count(ratio.ours) || !reporter.rates.count(ratio.theirs))
            continue;
        const double figure = reporter.rates[ratio.ours] / reporter.rates[ratio.theirs];
        std::printf("%s / %s = %.2f (gate %.2f, aim %.2f)\n", ratio.ours.c_str(), ratio.theirs.c_str(), figure,
                    ratio.gate, ratio.aim);
        isGood = isGood && figure >= ratio.gate;
    }
    return isGood ? 0 : 1;
}
