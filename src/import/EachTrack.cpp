#include "import/EachTrack.h"

#include "base/Interrupted.h"
#include "base/ParallelJobs.h"

#include <numeric>

namespace {

bool areWorthThreads(const QVector<Track> &tracks)
{
    constexpr qint64 fewest = 20'000; // events, which take longer than it takes to begin threads
    const auto events = std::accumulate(tracks.begin(), tracks.end(), qint64(0),
                                        [](qint64 sum, const Track &track) { return sum + track.events().size(); });
    return tracks.size() > 1 && events >= fewest;
}

} // namespace

void forEachTrack(const QVector<Track> &tracks, const std::stop_token &stop, const std::function<void(int)> &work)
{
    struct Done
    {
    };
    const int count = int(tracks.size());
    int next = 0;
    const auto workOnNext = [&](int number) {
        throwIfStopped(stop);
        work(number);
        return Done();
    };
    if (!areWorthThreads(tracks)) {
        while (next < count)
            workOnNext(next++);
        return;
    }
    ParallelJobs jobs(ParallelJobs::allCores(), [&stop] { throwIfStopped(stop); });
    jobs.run<Done>([&]() -> std::optional<Job<Done>> {
        if (next == count)
            return std::nullopt;
        return Job<Done>{[&workOnNext, number = next++] { return workOnNext(number); }, [](Done) {}};
    });
}
