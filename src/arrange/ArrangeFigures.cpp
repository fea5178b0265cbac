#include "arrange/ArrangeFigures.h"

#include <queue>

#include <algorithm>

namespace {

constexpr quint32 pitches = 128;

size_t rowOf(const TrackEvent &note)
{
    return std::min(note.pitch(), pitches - 1);
}

int mostAtOnceIn(const Track &track)
{
    std::priority_queue<Ticks, std::vector<Ticks>, std::greater<>> ends;
    size_t most = 0;
    for (const auto &event : track.events()) {
        while (!ends.empty() && ends.top() <= event.start())
            ends.pop();
        if (event.isNote() && event.length() > 0)
            ends.push(event.end());
        most = std::max(most, ends.size());
    }
    return int(most);
}

std::optional<PitchRange> spanOf(const Track &track)
{
    std::optional<PitchRange> span;
    for (const auto &event : track.events()) {
        if (event.isNote() && !span)
            span = {event.pitch(), event.pitch()};
        else if (event.isNote())
            span = {std::min(span->lowest, event.pitch()), std::max(span->highest, event.pitch())};
    }
    return span;
}

double meanPitch(const Track &track)
{
    double sum = 0;
    for (const auto &event : track.events())
        sum += event.pitch();
    return sum / std::max(1, track.noteCount());
}

// The highest pitch that sounds, from the first moment to the last.
class TopOf
{
public:
    explicit TopOf(const Track &track) : events_(track.events()) { ends_.fill(-1); }

    int at(Ticks tick)
    {
        for (; next_ < events_.size() && events_[next_].start() <= tick; ++next_) {
            const auto &event = events_[next_];
            if (event.isNote())
                ends_[rowOf(event)] = std::max(ends_[rowOf(event)], event.end());
        }
        const auto sounds = [tick](Ticks end) { return end > tick; };
        const auto top = std::find_if(ends_.rbegin(), ends_.rend(), sounds);
        return int(ends_.rend() - top) - 1; // -1 when none does
    }

private:
    const QVector<TrackEvent> &events_;
    int next_ = 0;
    std::array<Ticks, pitches> ends_;
};

int crossingsOver(const Track &upper, const Track &lower)
{
    TopOf top(upper);
    int crossings = 0;
    for (const auto &event : lower.events()) { // the pitch of what is no note is above none
        const int above = top.at(event.start());
        crossings += above >= 0 && int(rowOf(event)) > above ? 1 : 0;
    }
    return crossings;
}

} // namespace

void measure(const std::vector<MeasuredPart> &parts)
{
    std::vector<std::pair<double, const MeasuredPart *>> fromTop;
    for (const auto &part : parts) {
        part.figures.span = spanOf(part.track);
        part.figures.mostAtOnce = mostAtOnceIn(part.track);
        if (!part.isPercussion && part.figures.span)
            fromTop.emplace_back(-meanPitch(part.track), &part);
    }
    std::stable_sort(fromTop.begin(), fromTop.end(), [](const auto &a, const auto &b) { return a.first < b.first; });
    for (size_t i = 1; i < fromTop.size(); ++i) {
        const auto &lower = *fromTop[i].second;
        lower.figures.crossings = crossingsOver(fromTop[i - 1].second->track, lower.track);
    }
}
