#include "arrange/WholeSong.h"

#include "arrange/OneTempo.h"
#include "audio/TempoPlaces.h"
#include "core/AbcParser.h"
#include "core/HeaderFields.h"
#include "core/KeyTable.h"
#include "import/ChangeKey.h"
#include "import/WrittenTempo.h"

#include <algorithm>
#include <array>
#include <optional>
#include <vector>

namespace {

quint32 transposedRow(quint32 row, int semitones)
{
    constexpr int fifth = 7; // semitones: a sharp more
    const int sharps = int(neutralKeyRow) - int(row) + fifth * semitones;
    int nearest = ((sharps % 12) + 12) % 12; // 12 sharps more sound the same
    if (nearest > 6 || (nearest == 6 && row > neutralKeyRow))
        nearest -= 12;
    return quint32(int(neutralKeyRow) - nearest);
}

QStringList transposedKeys(QStringList values, int semitones)
{
    for (auto &value : values) {
        if (const auto key = keyPosition(value))
            value = keyText(transposedRow(key->row, semitones), key->mode, MajorQualifier::Omit);
    }
    return values;
}

Track changedCopy(const Track &track)
{
    auto copy = track;
    copy.clearAbc();
    copy.setFilePath({});
    return copy;
}

std::optional<Ticks> firstNote(const Track &track)
{
    const auto note =
        std::find_if(track.events().begin(), track.events().end(), [](const auto &e) { return e.isNote(); });
    return note != track.events().end() ? std::optional(note->start()) : std::nullopt;
}

Ticks endOfNotes(const Track &track)
{
    Ticks end = 0;
    for (const auto &event : track.events())
        end = event.isNote() ? std::max(end, event.end()) : end;
    return end;
}

// The part whose last note is over last, by its moment and not its ticks.
template<typename EndOf>
const Track &lastToEnd(const QVector<Track> &tracks, EndOf endOf)
{
    const auto endsBefore = [&](const Track &a, const Track &b) { return TempoPlaces(a, b).of(endOf(a)) < endOf(b); };
    return *std::max_element(tracks.begin(), tracks.end(), endsBefore);
}

struct Stretch
{
    Ticks begin = 0;
    Ticks end = 0;
};

// What was in force before the start is at the start.
void moveToStart(Track &track, const Stretch &stretch)
{
    auto &events = track.editEvents();
    std::vector<TrackEvent> kept;
    qint64 tempo = track.ticksPerMinute();
    std::array<std::optional<TrackEvent>, TrackEvent::Metre + 1> inForce;
    for (auto event : events) {
        if (event.start() <= stretch.begin && !event.isNote()) {
            tempo = event.kind() == TrackEvent::Tempo && event.ticksPerMinute() > 0 ? event.ticksPerMinute() : tempo;
            event.setStart(0);
            inForce[event.kind()] = event;
        } else if (event.isNote() || event.start() < stretch.end) {
            event.setStart(event.start() - stretch.begin);
            kept.push_back(event);
        }
    }
    events.clear();
    for (const auto kind : {TrackEvent::Key, TrackEvent::UnitLength, TrackEvent::Metre}) {
        if (inForce[kind])
            events.append(*inForce[kind]);
    }
    std::copy(kept.begin(), kept.end(), std::back_inserter(events));
    if (tempo != track.ticksPerMinute()) {
        track.setTempo(tempo);
        track.setHeaderField(QStringLiteral("Q"), tempoText(tempo));
    }
}

Track trimmedTo(const Track &track, const Stretch &stretch)
{
    if (stretch.begin == 0 && track.length() <= stretch.end)
        return track;
    auto result = changedCopy(track);
    moveToStart(result, stretch);
    QVector<Ticks> barLines;
    for (const auto barLine : track.barLines()) {
        if (barLine > stretch.begin)
            barLines.append(barLine - stretch.begin);
    }
    result.setBarLines(barLines);
    result.normalize();
    return result;
}

// A unit length that changes nothing, where the rests end.
void endAt(Track &track, Ticks end)
{
    auto unit = TrackEvent::unitLength(end, 1, 4);
    const auto length = HeaderFields::parseUnitLength(track.headerField(QStringLiteral("L")));
    if (length > 0 && ticksPerWholeNote % length == 0)
        unit = TrackEvent::unitLength(end, 1, quint32(ticksPerWholeNote / length));
    for (const auto &event : track.events()) {
        if (event.kind() == TrackEvent::UnitLength)
            unit = TrackEvent::unitLength(end, event.numerator(), event.denominator());
    }
    track.appendEvent(unit);
}

} // namespace

Track WholeSong::transposed(const Track &track, int semitones, BeyondRange beyond)
{
    if (semitones == 0)
        return track;
    auto result = changedCopy(track);
    auto &events = result.editEvents();
    for (auto &event : events) {
        if (event.isNote())
            event = transposedNote(event, semitones, beyond);
        else if (event.kind() == TrackEvent::Key)
            event = TrackEvent::key(event.start(), transposedRow(event.keyIndex(), semitones), event.keyMode());
    }
    events.erase(std::remove_if(events.begin(), events.end(),
                                [](const TrackEvent &event) { return event.kind() == TrackEvent::None; }),
                 events.end());
    auto fields = result.headerFields();
    const auto key = QStringLiteral("K");
    fields[key] = transposedKeys(fields.value(key, QStringList(QStringLiteral("C"))), semitones);
    result.setHeaderFields(fields);
    result.normalize();
    return result;
}

Track WholeSong::withTemposOf(const Track &track, const Track &leader)
{
    if (tempoChanges(track) == tempoChanges(leader))
        return track;
    auto result = changedCopy(track);
    takeTempos(result, leader);
    result.normalize();
    return result;
}

Track WholeSong::inTempoOf(const Track &track, const Track &leader)
{
    return tempoChanges(track) == tempoChanges(leader) ? track : ::inTempoOf(track, leader);
}

QVector<Track> WholeSong::trimmed(const QVector<Track> &tracks)
{
    QVector<Track> sounding;
    for (const auto &track : tracks) {
        if (firstNote(track))
            sounding.append(track);
    }
    if (sounding.isEmpty())
        return tracks;
    const auto startsBefore = [](const Track &a, const Track &b) {
        return TempoPlaces(a, b).of(*firstNote(a)) < *firstNote(b);
    };
    const auto first = *std::min_element(sounding.begin(), sounding.end(), startsBefore);
    const auto last = lastToEnd(sounding, endOfNotes);
    QVector<Track> result;
    for (const auto &track : tracks)
        result.append(trimmedTo(
            track, {TempoPlaces(first, track).of(*firstNote(first)), TempoPlaces(last, track).of(endOfNotes(last))}));
    return result;
}

QVector<Track> WholeSong::padded(const QVector<Track> &tracks)
{
    if (tracks.isEmpty())
        return {};
    const auto lengthOf = [](const Track &track) { return track.length(); };
    const auto last = lastToEnd(tracks, lengthOf);
    QVector<Track> result;
    for (const auto &track : tracks) {
        auto changed = track;
        if (const auto end = TempoPlaces(last, track).of(last.length()); end > track.length()) {
            changed = changedCopy(track);
            endAt(changed, end);
            changed.normalize();
        }
        result.append(changed);
    }
    return result;
}
