#include "edit/plan/NoteEditPlan.h"

#include "core/AbcParser.h"
#include "edit/NoteLookup.h"
#include "edit/plan/EditWriter.h"

#include <algorithm>
#include <array>
#include <set>
#include <tuple>
#include <vector>

namespace {

constexpr Ticks removedLength = -1;
constexpr Ticks longestEdit = Ticks(1) << 40; // years of music, and far from any overflow

NoteSpec inRange(NoteSpec note)
{
    note.start = std::clamp<Ticks>(note.start, 0, longestEdit);
    note.length = std::clamp<Ticks>(note.length, 1, longestEdit);
    note.pitch = std::clamp(note.pitch, lowestPlayablePitch, highestPlayablePitch);
    return note;
}

NoteEditPlan::Plan leastPlan(const QString &text, const AbcReading &reading, const NoteEdit &edit, Track &result)
{
    constexpr std::array ways{std::pair(EditReach::Notes, EditLayout::InMeasures),
                              std::pair(EditReach::Notes, EditLayout::Plain),
                              std::pair(EditReach::Measures, EditLayout::Plain)};
    for (const auto &[reach, layout] : ways) {
        const auto changes = NoteEditPlan::textChanges(text, reading, edit, reach, layout);
        if (!changes)
            break;
        auto after = readAbc(applyChanges(text, *changes));
        if (NoteEditPlan::haveSameEvents(after.track, result))
            return {false, *changes, std::move(after), {}};
    }
    return {true, {difference(text, result.toAbc())}, readAbc(result.toAbc()), {}};
}

} // namespace

NoteEdit NoteEditPlan::cleaned(const Track &track, NoteEdit edit)
{
    const auto &events = track.events();
    const auto isNote = [&](int note) { return note >= 0 && note < events.size() && events[note].isNote(); };
    std::set<int> removed;
    for (const auto note : edit.removed) {
        if (isNote(note))
            removed.insert(note);
    }
    NoteEdit result;
    std::set<std::pair<Ticks, quint32>> taken;
    const auto takes = [&](const NoteSpec &note) { return taken.insert({note.start, note.pitch}).second; };
    std::set<int> touched = removed;
    for (auto change : edit.changed) {
        if (!isNote(change.note) || !touched.insert(change.note).second)
            continue;
        change.to = inRange(change.to);
        if (!takes(change.to))
            removed.insert(change.note);
        else if (!(change.to == specOf(events[change.note])))
            result.changed.append(change);
    }
    for (auto &note : edit.inserted)
        note = inRange(note);
    std::set<NoteSpec> existing;
    for (const auto note : findNotes(track, edit.inserted)) {
        if (touched.count(note) == 0)
            existing.insert(specOf(events[note]));
    }
    for (const auto &note : edit.inserted) {
        if (existing.count(note) == 0 && takes(note))
            result.inserted.append(note);
    }
    for (int i = 0; i < events.size(); ++i) {
        if (isNote(i) && touched.count(i) == 0 && taken.count({events[i].start(), events[i].pitch()}) != 0)
            removed.insert(i);
    }
    result.removed = QVector<int>(removed.begin(), removed.end());
    return result;
}

Track NoteEditPlan::editedTrack(const Track &track, const NoteEdit &edit)
{
    auto result = track;
    result.clearAbc();
    auto &events = result.editEvents();
    for (const auto &change : edit.changed) {
        auto &event = events[change.note];
        event.setStart(change.to.start);
        event.setLength(change.to.length);
        event.setPitch(change.to.pitch);
    }
    for (auto note = edit.removed.rbegin(); note != edit.removed.rend(); ++note)
        events[*note].setLength(removedLength);
    events.erase(std::remove_if(events.begin(), events.end(),
                                [](const TrackEvent &event) { return event.length() == removedLength; }),
                 events.end());
    for (const auto &note : edit.inserted)
        events.append(TrackEvent::note(note.pitch, note.start, note.length));
    result.normalize();
    return result;
}

bool NoteEditPlan::haveSameEvents(const Track &a, const Track &b)
{
    const auto isSame = [](const TrackEvent &x, const TrackEvent &y) {
        return x.kind() == y.kind() && x.start() == y.start() && x.length() == y.length() && x.pitch() == y.pitch() &&
               x.ticksPerMinute() == y.ticksPerMinute() && x.keyIndex() == y.keyIndex() && x.keyMode() == y.keyMode() &&
               x.numerator() == y.numerator() && x.denominator() == y.denominator();
    };
    const auto inOrder = [](QVector<TrackEvent> events) {
        std::stable_sort(events.begin(), events.end(), [](const TrackEvent &x, const TrackEvent &y) {
            return std::make_tuple(x.start(), x.length(), x.pitch()) <
                   std::make_tuple(y.start(), y.length(), y.pitch());
        });
        return events;
    };
    const auto x = inOrder(a.events());
    const auto y = inOrder(b.events());
    return std::equal(x.begin(), x.end(), y.begin(), y.end(), isSame);
}

std::optional<QVector<TextChange>> NoteEditPlan::textChanges(const QString &text, const AbcReading &reading,
                                                             const NoteEdit &edit, EditReach reach, EditLayout layout)
{
    const NotePieces pieces(reading, edit, reach);
    if (!pieces.isPossible())
        return {};
    return EditWriter(text, reading, pieces, layout).write();
}

std::optional<NoteEditPlan::Plan> NoteEditPlan::plan(const QString &text, const AbcReading &reading,
                                                     const NoteEdit &edit)
{
    const auto wanted = cleaned(reading.track, edit);
    if (wanted.changed.isEmpty() && wanted.removed.isEmpty() && wanted.inserted.isEmpty())
        return std::nullopt;
    auto result = editedTrack(reading.track, wanted);
    auto plan = leastPlan(text, reading, wanted, result);
    plan.touched = wanted.inserted;
    for (const auto &change : wanted.changed)
        plan.touched.append(change.to);
    return plan;
}
