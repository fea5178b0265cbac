#pragma once

#include "core/Track.h"

#include <vector>

// One measure of a track. The last one before a change of metre may be cut short.
struct PianoRollMeasure
{
    qint64 number = 1; // from 1
    Ticks start = 0;
    Ticks end = 0;
    Ticks beat = 0; // at least 1
};

// The measures and beats of a track, from its metre and the metre changes among its events; each change begins a
// measure. Music without a metre is counted in whole notes of four beats. A value.
class PianoRollMeasures
{
public:
    explicit PianoRollMeasures(const Track &track = {});

    PianoRollMeasure at(Ticks tick) const;

    // Where the measure begins that a musician would go to next: a start itself is left.
    Ticks nextStart(Ticks tick) const { return at(tick).end; }
    Ticks previousStart(Ticks tick) const { return tick > 0 ? at(tick - 1).start : 0; }

    // Calls draw(PianoRollMeasure) for the measures that touch from..to. Where they lie closer than a distance above
    // 0, only every second, fourth, eighth… of them.
    template<typename Draw>
    void forEachIn(Ticks from, Ticks to, Ticks leastDistance, Draw draw) const;

    // The tempo and the metre at the start, and their changes, by time.
    const std::vector<TrackEvent> &marks() const { return marks_; }

private:
    // Measures of one length, up to the next section.
    struct Section
    {
        Ticks start;
        Ticks measure;
        Ticks beat;
        qint64 firstNumber;
    };

    void addSection(Ticks start, Ticks measure, quint32 beats);
    void addMark(const TrackEvent &event);
    size_t sectionAt(Ticks tick) const;
    Ticks sectionEnd(size_t section) const;
    PianoRollMeasure measure(size_t section, qint64 index) const;

    std::vector<Section> sections_; // never empty
    std::vector<TrackEvent> marks_;
};

template<typename Draw>
void PianoRollMeasures::forEachIn(Ticks from, Ticks to, Ticks leastDistance, Draw draw) const
{
    auto nextAllowed = -maxTicks;
    for (auto section = sectionAt(from); section < sections_.size() && sections_[section].start < to; ++section) {
        const auto length = sections_[section].measure;
        qint64 stride = 1;
        while (stride * length < leastDistance)
            stride *= 2;
        const auto end = std::min(to, sectionEnd(section));
        auto index = std::max(Ticks(0), from - sections_[section].start) / length / stride * stride;
        for (; sections_[section].start + index * length < end; index += stride) {
            const auto next = measure(section, index);
            if (next.start < nextAllowed)
                continue;
            draw(next);
            nextAllowed = next.start + leastDistance;
        }
    }
}
