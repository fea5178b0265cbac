#include "core/Track.h"

#include "core/AbcWriter.h"

#include <algorithm>
#include <array>

namespace {

// Not a function, as the sorting would call it by its address then.
constexpr auto sortsBefore = [](const TrackEvent &a, const TrackEvent &b) {
    const auto startA = quint64(a.start());
    const auto startB = quint64(b.start());
    return startA != startB ? startA < startB : quint64(a.length()) < quint64(b.length());
};

// Whether normalize() drops the event, given the one after it (null for the last) and the tempo in force before it.
bool isRedundant(const TrackEvent &event, const TrackEvent *next, qint64 runningTempo)
{
    if (event.isNote())
        return false;
    if (event.kind() == TrackEvent::Tempo && event.ticksPerMinute() == runningTempo)
        return true;
    return next != nullptr && next->start() == event.start() && next->kind() == event.kind();
}

} // namespace

QString Track::headerField(const QString &letter, const QString &fallback) const
{
    const auto field = headerFields_.constFind(letter);
    return field == headerFields_.constEnd() || field->isEmpty() ? fallback : field->first();
}

QString Track::title() const
{
    return headerField(QStringLiteral("T"), QStringLiteral("Untitled"));
}

void Track::setMetre(quint32 measureTicks, quint32 beatsPerMeasure)
{
    measureTicks_ = measureTicks;
    beatsPerMeasure_ = beatsPerMeasure;
}

int Track::noteCount() const
{
    return int(std::count_if(events_.begin(), events_.end(), [](const TrackEvent &event) { return event.isNote(); }));
}

QMap<quint32, int> Track::pitchCounts() const
{
    QMap<quint32, int> counts;
    std::array<int, 128> usual{}; // nearly all, counted fast
    for (const auto &event : events_) {
        if (event.isNote())
            ++(event.pitch() < usual.size() ? usual[event.pitch()] : counts[event.pitch()]);
    }
    for (quint32 pitch = 0; pitch < usual.size(); ++pitch) {
        if (usual[pitch] > 0)
            counts[pitch] = usual[pitch];
    }
    return counts;
}

int Track::firstEventAtOrAfter(Ticks tick) const
{
    const auto startsBefore = [](const TrackEvent &event, Ticks at) { return quint64(event.start()) < quint64(at); };
    return int(std::lower_bound(events_.begin(), events_.end(), tick, startsBefore) - events_.begin());
}

void Track::normalize()
{
    length_ = 0;
    if (events_.isEmpty())
        return;
    if (!std::is_sorted(events_.cbegin(), events_.cend(), sortsBefore))
        std::stable_sort(events_.begin(), events_.end(), sortsBefore);

    auto runningTempo = ticksPerMinute_;
    const auto end = events_.end();
    auto kept = events_.begin();
    for (auto event = events_.begin(); event != end; ++event) {
        // Before the test: an event that is dropped still counts towards the length.
        if (quint64(event->end()) > quint64(length_))
            length_ = event->end();
        if (isRedundant(*event, event + 1 != end ? &event[1] : nullptr, runningTempo))
            continue;
        if (event->kind() == TrackEvent::Tempo)
            runningTempo = event->ticksPerMinute();
        if (kept != event)
            *kept = *event;
        ++kept;
    }
    events_.erase(kept, end);
}

const QString &Track::toAbc()
{
    if (abc_.isEmpty())
        abc_ = writeAbc(*this);
    return abc_;
}
