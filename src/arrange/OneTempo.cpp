#include "arrange/OneTempo.h"

#include "audio/TempoPlaces.h"
#include "import/WrittenTempo.h"

namespace {

const auto tempoField = QStringLiteral("Q");

void moveNote(TrackEvent &note, const TempoPlaces &places)
{
    const auto start = places.of(note.start());
    note.setLength(note.length() > 0 ? std::max(Ticks(1), places.of(note.end()) - start) : 0);
    note.setStart(start);
}

void moveEvents(Track &track, const TempoPlaces &places)
{
    for (auto &event : track.editEvents()) {
        if (event.isNote())
            moveNote(event, places);
        else
            event.setStart(places.of(event.start()));
    }
    auto barLines = track.barLines();
    for (auto &barLine : barLines)
        barLine = places.of(barLine);
    track.setBarLines(barLines);
}

} // namespace

void takeTempos(Track &track, const Track &leader)
{
    auto &events = track.editEvents();
    const auto isTempo = [](const TrackEvent &event) { return event.kind() == TrackEvent::Tempo; };
    events.erase(std::remove_if(events.begin(), events.end(), isTempo), events.end());
    std::copy_if(leader.events().cbegin(), leader.events().cend(), std::back_inserter(events), isTempo);
    if (track.ticksPerMinute() == leader.ticksPerMinute())
        return;
    track.setTempo(leader.ticksPerMinute());
    track.setHeaderField(tempoField, tempoText(leader.ticksPerMinute()));
}

Track inTempoOf(const Track &track, const Track &leader)
{
    auto result = track;
    const TempoPlaces places(track, leader);
    if (places.areMoved())
        moveEvents(result, places);
    takeTempos(result, leader);
    result.clearAbc();
    result.setFilePath({});
    result.normalize();
    return result;
}
