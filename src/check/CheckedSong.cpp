#include "check/CheckedSong.h"

#include "base/Interrupted.h"
#include "base/ParallelJobs.h"

#include <algorithm>
#include <numeric>

namespace {

using Checked = std::shared_ptr<const PartCheck>;

Checked checkOf(const CheckedSong::Part &part, const InstrumentSet &instruments, const CheckOptions &options,
                const std::stop_token &stop)
{
    auto track = *part.track;
    return std::make_shared<const PartCheck>(checkPart(track.toAbc(), part.instrument, instruments, options, stop));
}

} // namespace

int CheckedSong::findingCount() const
{
    return std::accumulate(parts_.begin(), parts_.end(), 0,
                           [](int sum, const Result &part) { return sum + part.count(); });
}

Checked CheckedSong::kept(const Part &part) const
{
    const auto same = std::find_if(parts_.begin(), parts_.end(), [&](const Result &other) {
        return other.part.id == part.id && other.part.track == part.track && other.part.instrument == part.instrument;
    });
    return same != parts_.end() ? same->alone : nullptr;
}

CheckedSong CheckedSong::updated(const QVector<Part> &parts, const InstrumentSet &instruments,
                                 const CheckOptions &options, const std::stop_token &stop) const
{
    CheckedSong song;
    song.options_ = options;
    for (const auto &part : parts)
        song.parts_.append({part, options == options_ ? kept(part) : nullptr, {}});
    int next = 0;
    ParallelJobs jobs(ParallelJobs::allCores(), [&stop] { throwIfStopped(stop); });
    jobs.run<Checked>([&]() -> std::optional<Job<Checked>> {
        while (next < song.parts_.size() && song.parts_[next].alone)
            ++next;
        if (next == song.parts_.size())
            return std::nullopt;
        auto &result = song.parts_[next++];
        return Job<Checked>{
            [&instruments, &options, part = result.part, stop] { return checkOf(part, instruments, options, stop); },
            [&result](Checked check) { result.alone = std::move(check); }};
    });
    QVector<PartFacts> facts;
    for (const auto &result : qAsConst(song.parts_))
        facts.append(result.alone->facts);
    const auto textOf = [&song, &stop](int part) {
        throwIfStopped(stop);
        auto track = *song.parts_[part].part.track;
        return track.toAbc();
    };
    const auto together = checkSong(facts, textOf);
    for (int i = 0; i < together.size(); ++i)
        song.parts_[i].together = together[i];
    return song;
}
