#include "core/Measures.h"

namespace {

constexpr quint32 beatsWithoutMetre = 4;

// "4/4" from the track's metre, which does not keep its denominator.
TrackEvent metreAtStart(const Track &track)
{
    const auto beats = std::max(1U, track.beatsPerMeasure());
    const auto measure = std::max(1U, track.measureTicks());
    return TrackEvent::metre(0, beats, quint32(quint64(beats) * ticksPerWholeNote / measure));
}

TrackEvent tempoAtStart(const Track &track)
{
    return TrackEvent::tempo(0, 1, 4, quint32(track.ticksPerMinute() / ticksPerQuarter));
}

} // namespace

Measures::Measures(const Track &track)
{
    addSection(0, track.measureTicks(), track.beatsPerMeasure());
    addMark(metreAtStart(track));
    addMark(tempoAtStart(track));
    for (const auto &event : track.events()) {
        if (event.start() < 0)
            continue;
        if (event.kind() == TrackEvent::Metre) {
            const auto length =
                event.denominator() == 0 ? 0 : scaled(ticksPerWholeNote, event.numerator(), event.denominator());
            addSection(event.start(), length, event.numerator());
            addMark(event);
        } else if (event.kind() == TrackEvent::Tempo) {
            addMark(event);
        }
    }
}

void Measures::addSection(Ticks start, Ticks measure, quint32 beats)
{
    const bool hasMetre = measure > 0;
    if (!hasMetre) {
        measure = ticksPerWholeNote;
        beats = beatsWithoutMetre;
    }
    qint64 firstNumber = 1;
    if (!sections_.empty()) {
        auto &before = sections_.back();
        firstNumber = before.firstNumber + (start - before.start + before.measure - 1) / before.measure;
        before.end = start;
        if (before.start == start)
            sections_.pop_back();
    }
    const auto beat = std::max(Ticks(1), measure / std::max(1U, beats));
    sections_.push_back({start, 2 * maxTicks, measure, beat, firstNumber, hasMetre});
}

void Measures::addMark(const TrackEvent &event)
{
    for (auto earlier = marks_.rbegin(); earlier != marks_.rend() && earlier->start() == event.start(); ++earlier) {
        if (earlier->kind() == event.kind()) {
            *earlier = event;
            return;
        }
    }
    marks_.push_back(event);
}

size_t Measures::indexAt(Ticks tick) const
{
    const auto after = std::upper_bound(sections_.begin() + 1, sections_.end(), tick,
                                        [](Ticks at, const Section &section) { return at < section.start; });
    return size_t(after - sections_.begin()) - 1;
}

Measure Measures::measure(const Section &section, qint64 index)
{
    const auto start = section.start + index * section.measure;
    return {section.firstNumber + index, start, std::min(start + section.measure, section.end), section.beat};
}

Measure Measures::at(Ticks tick) const
{
    const auto &section = sectionAt(tick);
    return measure(section, std::max(Ticks(0), tick - section.start) / section.measure);
}
