#include "import/quantise/CleanQuantise.h"

#include "base/Interrupted.h"
#include "import/EachTrack.h"
#include "import/UnitLength.h"
#include "import/quantise/MeasureGrids.h"
#include "import/quantise/NoteLengths.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <unordered_map>
#include <utility>

namespace {

constexpr Ticks measureStep = ticksPerWholeNote / 64;
constexpr Ticks firstUnit = ticksPerWholeNote / 16;

double msPerTick(qint64 ticksPerMinute)
{
    return ticksPerMinute > 0 ? 60'000.0 / double(ticksPerMinute) : 0;
}

Ticks nearestMultiple(Ticks time, Ticks step)
{
    return (time + step / 2) / step * step;
}

class Quantiser
{
public:
    Quantiser(Track track, const std::stop_token &stop) : track_(std::move(track)), stop_(stop) {}

    Track run(Shifts *shifts);

private:
    void alignMetres();
    void collectOnsets();
    Ticks findUnit() const;
    std::vector<LooseNote> looseNotes() const;
    void moveNotes(Shifts *shifts);
    void moveTempos();
    Ticks placeOf(Ticks time, double farthest) const;

    Track track_;
    const std::stop_token &stop_;
    std::vector<Onset> onsets_;
    std::vector<size_t> onsetOf_; // by event; of notes only
    std::vector<PlacedOnset> places_;
};

// Bar lines are where grids begin.
void Quantiser::alignMetres()
{
    for (auto &event : track_.editEvents()) {
        if (event.kind() == TrackEvent::Metre)
            event.setStart(nearestMultiple(event.start(), measureStep));
    }
    track_.normalize();
}

void Quantiser::collectOnsets()
{
    auto ms = msPerTick(track_.ticksPerMinute());
    for (const auto &event : track_.events()) {
        if (event.kind() == TrackEvent::Tempo)
            ms = msPerTick(event.ticksPerMinute());
        if (event.isNote() && (onsets_.empty() || onsets_.back().time != event.start()))
            onsets_.push_back({event.start(), ms});
        onsetOf_.push_back(onsets_.empty() ? 0 : onsets_.size() - 1);
    }
}

// The unit that makes the lengths from onset to onset shortest; most notes will have such a length.
Ticks Quantiser::findUnit() const
{
    Track steps;
    for (size_t i = 1; i < places_.size(); ++i) {
        if (const auto length = places_[i].time - places_[i - 1].time; length > 0)
            steps.appendEvent(TrackEvent::note(0, 0, length));
    }
    return ticksPerWholeNote / detectUnitLength(steps);
}

// From the last to the first, so that each meets the next of its pitch.
std::vector<LooseNote> Quantiser::looseNotes() const
{
    std::vector<LooseNote> notes;
    std::unordered_map<quint32, std::pair<Ticks, Ticks>> nextOfPitch; // where it was played, and its place
    for (int i = track_.events().size(); i-- > 0;) {
        const auto &event = track_.events()[i];
        if (!event.isNote())
            continue;
        const auto onset = onsetOf_[size_t(i)];
        const auto place = places_[onset].time;
        LooseNote note{onset, event.length(), event.end(), maxTicks, onsets_[onset].msPerTick};
        const auto next = nextOfPitch.find(event.pitch());
        if (next != nextOfPitch.end() && next->second.second > place && next->second.first >= event.end())
            note.longest = next->second.second - place;
        if (next == nextOfPitch.end() || next->second.second > place)
            nextOfPitch[event.pitch()] = {event.start(), place};
        notes.push_back(note);
    }
    std::reverse(notes.begin(), notes.end());
    return notes;
}

void Quantiser::moveNotes(Shifts *shifts)
{
    const auto notes = looseNotes();
    LengthPrices prices(findUnit());
    const auto lengths = chooseLengths(notes, places_, prices);
    size_t number = 0;
    for (auto &event : track_.editEvents()) {
        if (!event.isNote())
            continue;
        const auto onset = notes[number].onset;
        const auto place = places_[onset].time;
        if (shifts != nullptr && place != event.start())
            shifts->push_back({double(std::abs(place - event.start())) * onsets_[onset].msPerTick, place});
        event.setStart(place);
        event.setLength(lengths[number++]);
    }
}

// The onset next to a time, or where there is none that near, the coarsest simple point that is.
Ticks Quantiser::placeOf(Ticks time, double farthest) const
{
    const auto isBefore = [](const PlacedOnset &place, Ticks at) { return place.time < at; };
    const auto behind = std::lower_bound(places_.begin(), places_.end(), time, isBefore);
    Ticks best = -maxTicks;
    if (behind != places_.end())
        best = behind->time;
    if (behind != places_.begin() && time - std::prev(behind)->time < std::abs(best - time))
        best = std::prev(behind)->time;
    for (auto step = ticksPerWholeNote / 32; double(std::abs(best - time)) > farthest && step > 1; step /= 2)
        best = nearestMultiple(time, step);
    return double(std::abs(best - time)) > farthest ? time : best;
}

// A change of tempo, or of key, in the middle of a note costs a rest in its brackets. It moves as far as the music's
// time does not change by more than a millisecond.
void Quantiser::moveTempos()
{
    constexpr double farthestKey = double(ticksPerWholeNote) / 32;
    auto ms = msPerTick(track_.ticksPerMinute());
    Ticks last = 0;
    for (auto &event : track_.editEvents()) {
        if (event.kind() == TrackEvent::Tempo) {
            const auto before = std::exchange(ms, msPerTick(event.ticksPerMinute()));
            const auto change = std::abs(ms - before);
            last = std::max(last, placeOf(event.start(), change > 0 ? 1 / change : farthestKey));
            event.setStart(last);
        } else if (!event.isNote() && event.kind() != TrackEvent::Metre) {
            event.setStart(placeOf(event.start(), farthestKey));
        }
    }
}

Track Quantiser::run(Shifts *shifts)
{
    track_.clearAbc();
    alignMetres();
    collectOnsets();
    if (onsets_.empty())
        return std::move(track_);
    const Measures measures(track_);
    for (auto unit : {firstUnit, Ticks(0)}) {
        LengthPrices prices(unit > 0 ? unit : findUnit());
        places_ = placeOnsets(onsets_, measures, prices, stop_);
    }
    moveTempos();
    moveNotes(shifts);
    track_.normalize();
    return std::move(track_);
}

} // namespace

Track cleanQuantised(Track track, Shifts *shifts, const std::stop_token &stop)
{
    return Quantiser(std::move(track), stop).run(shifts);
}

ImportResult importMidiCleanly(const QByteArray &bytes, const MidiImportOptions &wanted, const std::stop_token &stop)
{
    auto options = wanted;
    options.autoRealign = false;
    auto result = importMidi(bytes, options, stop);
    auto *const tracks = result.tracks.data();
    std::vector<Shifts> shifts(size_t(result.tracks.size()));
    forEachTrack(result.tracks, stop, [&](int number) {
        auto &track = tracks[number];
        track = cleanQuantised(std::move(track), &shifts[size_t(number)], stop);
        if (const auto l = QStringLiteral("L"); track.hasHeaderField(l) && options.autoDetectUnitLength)
            track.setHeaderField(l, unitLengthText(detectUnitLength(track)));
    });
    for (int i = 0; i < result.parts.size(); ++i)
        addShifts(result, i, shifts[size_t(i)]);
    return result;
}
