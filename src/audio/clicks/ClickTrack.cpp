#include "audio/clicks/ClickTrack.h"

#include "core/Measures.h"

#include <algorithm>

namespace ClickTrack {

namespace {

constexpr quint32 pitchOf(Click click)
{
    return click == Click::Accent ? 61 : 60;
}

constexpr int mostClicks = 200'000;
constexpr Ticks shortestBeat = ticksPerWholeNote / 64;

Ticks distanceOf(Ticks beat)
{
    while (beat < shortestBeat)
        beat *= 2;
    return beat;
}

// A last beat that a change of metre cuts to less than a half is none.
void addMeasure(Track &clicks, const Measure &measure, Ticks end)
{
    const auto distance = distanceOf(measure.beat);
    for (auto tick = measure.start; tick < end && tick + (tick > measure.start ? distance / 2 : 0) < measure.end;
         tick += distance) {
        if (clicks.events().size() < mostClicks)
            clicks.appendEvent(TrackEvent::note(pitchOf(tick == measure.start ? Click::Accent : Click::Beat), tick,
                                                std::min(distance, end - tick)));
    }
}

qint64 tempoAt(const Track &track, Ticks place)
{
    auto tempo = track.ticksPerMinute() > 0 ? track.ticksPerMinute() : defaultTicksPerMinute;
    for (const auto &event : track.events()) {
        if (event.kind() == TrackEvent::Tempo && event.start() <= place && event.ticksPerMinute() > 0)
            tempo = event.ticksPerMinute();
    }
    return tempo;
}

} // namespace

Track beats(const Track &track, Ticks length)
{
    Track clicks;
    clicks.setTempo(track.ticksPerMinute());
    for (const auto &event : track.events()) {
        if (event.kind() == TrackEvent::Tempo)
            clicks.appendEvent(event);
    }
    const auto end = std::min(length, mostClicks * ticksPerQuarter);
    Measures(track).forEachIn(0, end, shortestBeat, [&](const Measure &measure) { addMeasure(clicks, measure, end); });
    clicks.normalize();
    return clicks;
}

Track countIn(const Track &track, Ticks place, int measures)
{
    const Measures counted(track);
    const auto &section = counted.sectionAt(place);
    const auto aMinute = tempoAt(track, place);
    const auto begun = place - counted.at(place).start;
    measures = int(std::min(Ticks(std::min(measures, mostCountInMeasures)), (aMinute - begun) / section.measure));
    Track clicks;
    if (measures <= 0)
        return clicks;
    const auto length = measures * section.measure + begun;
    clicks.setTempo(aMinute);
    for (Ticks start = 0; start < length; start += section.measure)
        addMeasure(clicks, {1, start, start + section.measure, section.beat}, length);
    auto &last = clicks.editEvents().last();
    last.setLength(length - last.start());
    clicks.normalize();
    return clicks;
}

Instrument instrument()
{
    Instrument made;
    for (const auto click : {Click::Beat, Click::Accent})
        made.tuning.notes[pitchOf(click)] = NoteEntry{{sampleName(click)}};
    return made;
}

QString sampleName(Click click)
{
    return click == Click::Accent ? QStringLiteral("click:accent") : QStringLiteral("click:beat");
}

} // namespace ClickTrack
