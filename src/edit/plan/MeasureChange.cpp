#include "edit/plan/MeasureChange.h"

#include "core/AbcTokenizer.h"
#include "edit/NoteLookup.h"
#include "edit/NoteSpelling.h"
#include "edit/plan/NoteEditPlan.h"

#include <algorithm>
#include <map>
#include <tuple>
#include <vector>

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

int barLineAt(const AbcLayout &layout, Ticks tick)
{
    for (int mark = 1; mark < layout.marks.size(); ++mark) {
        if (layout.marks[mark].kind == AbcAccidentalMark::Kind::BarLine && layout.marks[mark].time == tick)
            return mark;
    }
    return -1;
}

int endOfBarLine(const Tune &tune, int mark)
{
    const auto offset = tune.reading.layout.marks[mark].offset;
    const auto rest = QStringView(tune.text).mid(offset);
    AbcTokenizer tokens(rest);
    AbcToken token;
    return tokens.next(token) ? offset + int(token.text.size()) : offset;
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

TextChange restAt(const Tune &tune, Ticks at, Ticks length)
{
    const auto &layout = tune.reading.layout;
    const auto rest = u'z' + lengthText(length, tune.reading.unitLength);
    const auto mark = barLineAt(layout, at);
    if (mark >= 0)
        return {{endOfBarLine(tune, mark), 0}, u' ' + rest + QStringLiteral(" |")};
    if (at > 0)
        return {{endOfMusicBefore(layout, at), 0}, u' ' + rest};
    const bool hasBarLines = layout.marks.size() > 1;
    return {{layout.bodyOffset, 0}, rest + (hasBarLines ? QStringLiteral(" |\n") : QStringLiteral("\n"))};
}

QString keptFields()
{
    return QStringLiteral("KLMQ");
}

// The last field of each letter that still says something behind the stretch.
QString fieldsIn(const QString &stretch)
{
    std::map<QString, QString> lines;
    std::map<QString, QString> inlineFields;
    AbcTokenizer tokens(stretch);
    AbcToken token;
    while (tokens.next(token)) {
        const auto name = token.part(AbcPart::Name).toString();
        if (token.type == AbcTokenType::FieldLine && keptFields().contains(name))
            lines[name] = token.text.toString() + u'\n';
        if (token.type == AbcTokenType::InlineField && keptFields().contains(name))
            inlineFields[name] = token.text.toString();
    }
    QString kept = lines.empty() ? QString() : QStringLiteral("\n");
    for (const auto &fields : {lines, inlineFields}) {
        for (const auto &field : fields)
            kept += field.second;
    }
    return kept;
}

// From behind one bar line to behind the other.
std::optional<TextChange> withoutMeasures(const Tune &tune, Ticks from, Ticks to)
{
    const auto &layout = tune.reading.layout;
    const auto first = barLineAt(layout, from);
    const auto last = barLineAt(layout, to);
    const bool isAtEnd = layout.units.last().start <= to;
    if ((first < 0 && from > 0) || (last < 0 && !isAtEnd))
        return {};
    TextRange range;
    range.offset = from == 0 ? layout.bodyOffset : endOfBarLine(tune, first);
    const auto end = last >= 0 ? endOfBarLine(tune, last) : layout.units.last().range.offset;
    range.length = end - range.offset;
    auto fields = fieldsIn(tune.text.mid(range.offset, range.length));
    if (fields.startsWith(u'\n') && range.offset > 0 && tune.text[range.offset - 1] == u'\n')
        fields.remove(0, 1);
    return TextChange{range, fields};
}

// Where no bar lines stand, from the rests.
QVector<TextChange> withoutRests(const Tune &tune, Ticks from, Ticks to)
{
    QVector<TextChange> changes;
    for (const auto &unit : tune.reading.layout.units) {
        const auto common = std::min(to, unit.end) - std::max(from, unit.start);
        if (unit.isGap || common <= 0)
            continue;
        const auto left = unit.end - unit.start - common;
        changes.append({unit.range, left == 0 ? QString() : u'z' + lengthText(left, tune.reading.unitLength)});
    }
    return changes;
}

std::optional<QString> checked(const Tune &tune, const QVector<TextChange> &changes, const Track &wanted, Ticks behind)
{
    auto text = applyChanges(tune.text, changes);
    const auto found = readAbc(text).track;
    if (beginnings(found, behind) != beginnings(wanted, behind))
        return {};
    return text;
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
        if (spec.start >= from && spec.start < to)
            edit.removed.append(note);
        else if (spec.start < from && spec.start + spec.length > from)
            edit.changed.append(NoteEdit::Change{note, {spec.start, from - spec.start, spec.pitch}});
    });
    return edit;
}

} // namespace

std::optional<QString> MeasureChange::inserted(const QString &text, const AbcReading &reading, Ticks at, Ticks length)
{
    const auto tune = edited(text, reading, cutAt(reading.track, at));
    if (!tune)
        return {};
    return checked(*tune, {restAt(*tune, at, length)}, shifted(tune->reading.track, at, length), at - 1);
}

std::optional<QString> MeasureChange::removed(const QString &text, const AbcReading &reading, Ticks from, Ticks to)
{
    const auto tune = edited(text, reading, clearing(reading.track, from, to));
    if (!tune)
        return {};
    const auto wanted = closedUp(tune->reading.track, from, to);
    if (const auto change = withoutMeasures(*tune, from, to)) {
        if (auto result = checked(*tune, {*change}, wanted, from))
            return result;
    }
    return checked(*tune, withoutRests(*tune, from, to), wanted, from);
}
