#include "edit/plan/MeasureChange.h"

#include "edit/NoteLookup.h"
#include "edit/NoteSpelling.h"
#include "edit/plan/BarredMeasures.h"
#include "edit/plan/NoteEditPlan.h"

#include <algorithm>
#include <optional>
#include <tuple>
#include <vector>

using MeasureChange::Obstacle;
using MeasureChange::Result;

// What stands here are texts without bar lines, or places without them.
namespace {

struct Tune
{
    QString text;
    AbcReading reading;
};

// All that begins at a tick, and what must not change.
using Beginnings = std::vector<std::tuple<Ticks, int, Ticks, quint32>>;

std::optional<Tune> edited(const QString &text, const AbcReading &reading, const NoteEdit &edit)
{
    const auto plan = NoteEditPlan::plan(text, reading, edit);
    if (!plan)
        return Tune{text, reading};
    if (plan->rewritesAll)
        return {};
    return Tune{applyChanges(text, plan->changes), plan->reading};
}

template<typename Visit>
void forEachNote(const Track &track, Visit visit)
{
    for (int i = 0; i < track.events().size(); ++i) {
        if (track.events()[i].isNote())
            visit(i, specOf(track.events()[i]));
    }
}

// The notes, and the fields behind the tick.
Beginnings beginnings(const Track &track, Ticks fieldsBehind)
{
    Beginnings found;
    for (const auto &event : track.events()) {
        if (event.isNote() || event.start() > fieldsBehind)
            found.emplace_back(event.start(), int(event.kind()), event.length(), event.pitch());
    }
    std::sort(found.begin(), found.end());
    return found;
}

// Behind the last element that ends at the tick or before it.
int endOfMusicBefore(const AbcLayout &layout, Ticks tick)
{
    auto offset = layout.bodyOffset;
    for (const auto &element : layout.elements) {
        if (element.end() <= tick)
            offset = element.range.end();
    }
    return offset;
}

// The rest, with the blank before it where one behind it or the end of the line parts what is left.
TextRange withBlank(const QString &text, TextRange rest)
{
    const bool isApart = rest.end() == text.size() || text[rest.end()].isSpace();
    if (!isApart || rest.offset == 0 || text[rest.offset - 1] != u' ')
        return rest;
    return {rest.offset - 1, rest.length + 1};
}

QVector<TextChange> withoutRests(const Tune &tune, Ticks from, Ticks to)
{
    QVector<TextChange> changes;
    for (const auto &unit : tune.reading.layout.units) {
        const auto common = std::min(to, unit.end) - std::max(from, unit.start);
        if (unit.isGap || common <= 0)
            continue;
        const auto left = unit.end - unit.start - common;
        if (left == 0)
            changes.append({withBlank(tune.text, unit.range), {}});
        else
            changes.append({unit.range, u'z' + lengthText(left, tune.reading.unitLength)});
    }
    return changes;
}

Result checked(const Tune &tune, const QVector<TextChange> &changes, const Track &wanted, Ticks behind)
{
    const auto text = applyChanges(tune.text, changes);
    const bool isRight = beginnings(readAbc(text).track, behind) == beginnings(wanted, behind);
    return isRight ? Result{text, Obstacle::None} : Result{{}, Obstacle::NoBarLine};
}

Track shifted(Track track, Ticks from, Ticks by)
{
    for (auto &event : track.editEvents()) {
        if (event.start() >= from)
            event.setStart(event.start() + by);
    }
    return track;
}

// What stood in the stretch, fields alone, holds from its beginning on.
Track closedUp(const Track &track, Ticks from, Ticks to)
{
    auto result = shifted(track, to, from - to);
    const auto &before = track.events();
    for (int i = 0; i < before.size(); ++i) {
        if (before[i].start() > from && before[i].start() < to)
            result.editEvents()[i].setStart(from);
    }
    return result;
}

NoteEdit cutAt(const Track &track, Ticks at)
{
    NoteEdit edit;
    forEachNote(track, [&](int note, const NoteSpec &spec) {
        const auto end = spec.start + spec.length;
        if (spec.start >= at || end <= at)
            return;
        edit.changed.append(NoteEdit::Change{note, {spec.start, at - spec.start, spec.pitch}});
        edit.inserted.append({at, end - at, spec.pitch});
    });
    return edit;
}

NoteEdit clearing(const Track &track, Ticks from, Ticks to)
{
    NoteEdit edit;
    forEachNote(track, [&](int note, const NoteSpec &spec) {
        const auto end = spec.start + spec.length;
        if (spec.start >= from && spec.start < to && end > to)
            edit.changed.append(NoteEdit::Change{note, {to, end - to, spec.pitch}});
        else if (spec.start >= from && spec.start < to)
            edit.removed.append(note);
        else if (spec.start < from && end > from)
            edit.changed.append(NoteEdit::Change{note, {spec.start, from - spec.start, spec.pitch}});
    });
    return edit;
}

Result insertedAmongNotes(const QString &text, const AbcReading &reading, Ticks at, Ticks length)
{
    const auto tune = edited(text, reading, cutAt(reading.track, at));
    if (!tune)
        return {{}, Obstacle::NoBarLine};
    const auto rest = QStringLiteral(" z") + lengthText(length, tune->reading.unitLength);
    return checked(*tune, {{{endOfMusicBefore(tune->reading.layout, at), 0}, rest}},
                   shifted(tune->reading.track, at, length), at - 1);
}

Result removedAmongNotes(const QString &text, const AbcReading &reading, Ticks from, Ticks to)
{
    const auto tune = edited(text, reading, clearing(reading.track, from, to));
    if (!tune)
        return {{}, Obstacle::NoBarLine};
    return checked(*tune, withoutRests(*tune, from, to), closedUp(tune->reading.track, from, to), from);
}

} // namespace

Result MeasureChange::inserted(const QString &text, const AbcReading &reading, Ticks at, Ticks length)
{
    const BarredMeasures measures(text, reading);
    if (measures.hasBarLine(at))
        return measures.inserted(at, length);
    if (auto result = measures.restChanged(at, at, length); result.isDone())
        return result;
    return insertedAmongNotes(text, reading, at, length);
}

Result MeasureChange::removed(const QString &text, const AbcReading &reading, Ticks from, Ticks to)
{
    const BarredMeasures measures(text, reading);
    if (measures.hasBarLine(from) && (measures.hasBarLine(to) || measures.isBehindMusic(to)))
        return measures.removed(from, to);
    if (auto result = measures.restChanged(from, to, from - to); result.isDone())
        return result;
    return removedAmongNotes(text, reading, from, to);
}
