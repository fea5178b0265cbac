#include "ui/editor/PreviewTrack.h"

#include "edit/NoteLookup.h"

#include <algorithm>

namespace {

// Loops are written out: half an hour is longer than anybody practises a phrase in one go, and the next round begins
// anew. The number of events keeps it small.
constexpr qint64 loopMinutes = 30;
constexpr qint64 mostEvents = 200'000;

qint64 scaledTempo(qint64 ticksPerMinute, int percent)
{
    return std::clamp<qint64>(ticksPerMinute * percent / 100, 1, 0xFFFFFFFF);
}

// Tempo events count beats; a beat of one tick takes any number of ticks a minute.
TrackEvent tempoEvent(Ticks start, qint64 ticksPerMinute)
{
    return TrackEvent::tempo(start, 1, quint32(ticksPerWholeNote), quint32(ticksPerMinute));
}

qint64 tempoAt(const Track &track, Ticks tick)
{
    auto tempo = track.ticksPerMinute();
    for (const auto &event : track.events()) {
        if (event.start() > tick)
            break;
        if (event.kind() == TrackEvent::Tempo && event.ticksPerMinute() > 0)
            tempo = event.ticksPerMinute();
    }
    return tempo;
}

} // namespace

PreviewTrack::PreviewTrack(const Track &source, const Stretch &stretch) : source_(source), stretch_(stretch)
{
    stretch_.to = std::min(stretch_.to, source.length());
    roundLength_ = stretch_.to - stretch_.from;
    if (roundLength_ <= 0)
        return;
    const auto tempo = scaledTempo(tempoAt(source, stretch_.from), stretch_.tempoPercent);
    track_.setHeaderFields(source.headerFields());
    track_.setMetre(source.measureTicks(), source.beatsPerMeasure());
    track_.setTempo(tempo);
    appendRound(0, tempo);
    const auto events = qint64(track_.events().size());
    if (stretch_.loops && events > 0) {
        const auto rounds = std::min(tempo * loopMinutes / roundLength_, mostEvents / events);
        for (qint64 round = 1; round < rounds; ++round)
            appendRound(round * roundLength_, tempo);
    }
    track_.normalize();
}

void PreviewTrack::appendRound(Ticks begin, qint64 tempo)
{
    if (begin > 0)
        track_.appendEvent(tempoEvent(begin, tempo));
    const auto &events = source_.events();
    for (auto i = source_.firstEventAtOrAfter(stretch_.from); i < events.size() && events[i].start() < stretch_.to;
         ++i) {
        const auto start = events[i].start() - stretch_.from + begin;
        if (events[i].kind() == TrackEvent::Tempo && events[i].ticksPerMinute() > 0) {
            track_.appendEvent(tempoEvent(start, scaledTempo(events[i].ticksPerMinute(), stretch_.tempoPercent)));
        } else if (events[i].isNote()) {
            const auto length = std::min(events[i].end(), stretch_.to) - events[i].start();
            track_.appendEvent(TrackEvent::note(events[i].pitch(), start, length, events[i].velocity()));
        }
    }
}

Ticks PreviewTrack::sourceTick(Ticks position) const
{
    if (roundLength_ <= 0)
        return stretch_.from;
    return stretch_.from + (stretch_.loops ? position % roundLength_ : std::min(position, roundLength_));
}

QVector<NoteSpec> PreviewTrack::sourceNotes(const QVector<int> &events) const
{
    const auto &played = track_.events();
    QVector<NoteSpec> notes;
    for (const auto event : events) {
        if (event >= 0 && event < played.size() && played[event].isNote())
            notes.append({sourceTick(played[event].start()), 0, played[event].pitch()});
    }
    return firstNotesLike(source_, notes);
}
