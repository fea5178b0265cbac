#pragma once

#include "core/Track.h"

#include <algorithm>
#include <vector>

// One measure of a track. The last one before a change of metre may be cut short.
struct Measure
{
    qint64 number = 1; // from 1
    Ticks start = 0;
    Ticks end = 0;
    Ticks beat = 0; // at least 1
};

// The measures and beats of a track, from its metre and the metre changes among its events; each change begins a
// measure. Music without a metre is counted in whole notes of four beats. A value.
class Measures
{
public:
    // Measures of one length, up to the next section.
    struct Section
    {
        Ticks start = 0;
        Ticks end = 0; // of the last one: behind all music
        Ticks measure = 0;
        Ticks beat = 0;
        qint64 firstNumber = 1;
        bool hasMetre = false; // and not the whole notes that stand in for one
    };

    explicit Measures(const Track &track = {});

    Measure at(Ticks tick) const;

    // Where the measure begins that a musician would go to next: a start itself is left.
    Ticks nextStart(Ticks tick) const { return at(tick).end; }
    Ticks previousStart(Ticks tick) const { return tick > 0 ? at(tick - 1).start : 0; }

    // Calls draw(Measure) for the measures that touch from..to. Where they lie closer than a distance above
    // 0, only every second, fourth, eighth… of them.
    template<typename Draw>
    void forEachIn(Ticks from, Ticks to, Ticks leastDistance, Draw draw) const;

    // By time; never empty, the first begins at 0.
    const std::vector<Section> &sections() const { return sections_; }
    const Section &sectionAt(Ticks tick) const { return sections_[indexAt(tick)]; }

    // The tempo and the metre at the start, and their changes, by time.
    const std::vector<TrackEvent> &marks() const { return marks_; }

private:
    void addSection(Ticks start, Ticks measure, quint32 beats);
    void addMark(const TrackEvent &event);
    size_t indexAt(Ticks tick) const;
    static Measure measure(const Section &section, qint64 index);

    std::vector<Section> sections_;
    std::vector<TrackEvent> marks_;
};

template<typename Draw>
void Measures::forEachIn(Ticks from, Ticks to, Ticks leastDistance, Draw draw) const
{
    auto nextAllowed = -maxTicks;
    for (auto i = indexAt(from); i < sections_.size() && sections_[i].start < to; ++i) {
        const auto &section = sections_[i];
        qint64 stride = 1;
        while (stride * section.measure < leastDistance)
            stride *= 2;
        const auto end = std::min(to, section.end);
        auto index = std::max(Ticks(0), from - section.start) / section.measure / stride * stride;
        for (; section.start + index * section.measure < end; index += stride) {
            const auto next = measure(section, index);
            if (next.start < nextAllowed)
                continue;
            draw(next);
            nextAllowed = next.start + leastDistance;
        }
    }
}
