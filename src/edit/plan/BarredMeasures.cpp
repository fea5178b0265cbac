#include "edit/plan/BarredMeasures.h"

#include "core/AbcTokenizer.h"
#include "edit/NoteLookup.h"
#include "edit/NoteSpelling.h"
#include "edit/plan/TextErasure.h"

#include <algorithm>
#include <array>
#include <optional>

using MeasureChange::Obstacle;
using MeasureChange::Result;

namespace {

enum Part { Before, Within, Behind };

// Where a note begins before a stretch of the text, in it and behind it.
struct Starts
{
    std::array<std::optional<Ticks>, 3> of;
    int lastBefore = -1; // token
};

TextRange ownTie(const AbcNoteToken &token)
{
    return {token.lengthText.end(), token.range.end() - token.lengthText.end()};
}

TextRange chordTie(const AbcTextElement &chord)
{
    return {chord.chordLengthText.end(), chord.range.end() - chord.chordLengthText.end()};
}

// Fields behind the tick, as numbers that can be compared.
std::vector<std::array<qint64, 6>> fieldsBehind(const Track &track, Ticks tick, Ticks shift)
{
    std::vector<std::array<qint64, 6>> fields;
    for (const auto &event : track.events()) {
        if (!event.isNote() && event.start() > tick)
            fields.push_back({event.start() + shift, event.kind(), event.ticksPerMinute(), event.keyIndex(),
                              event.numerator(), event.denominator()});
    }
    std::sort(fields.begin(), fields.end());
    return fields;
}

} // namespace

BarredMeasures::BarredMeasures(const QString &text, const AbcReading &reading)
    : text_(text), reading_(reading), layout_(reading.layout), elementOfToken_(size_t(layout_.tokens.size()), 0)
{
    for (int i = 0; i < layout_.elements.size(); ++i) {
        const auto &element = layout_.elements[i];
        std::fill(elementOfToken_.begin() + element.firstToken, elementOfToken_.begin() + element.endToken, i);
    }
}

int BarredMeasures::barLineAt(Ticks at) const
{
    for (int mark = 1; mark < layout_.marks.size(); ++mark) {
        if (layout_.marks[mark].kind == AbcAccidentalMark::Kind::BarLine && layout_.marks[mark].time == at)
            return mark;
    }
    return -1;
}

QString BarredMeasures::barLineText(int mark) const
{
    AbcTokenizer tokens(QStringView(text_).mid(layout_.marks[mark].offset));
    AbcToken token;
    return tokens.next(token) ? token.text.toString() : QString();
}

int BarredMeasures::behindBarLine(Ticks at) const
{
    const auto mark = barLineAt(at);
    return mark < 0 ? firstLine() : layout_.marks[mark].offset + int(barLineText(mark).size());
}

// Of the music, behind fields that hold for all of it.
int BarredMeasures::firstLine() const
{
    auto first = int(text_.size());
    for (const auto &unit : layout_.units)
        first = std::min(first, unit.range.offset);
    if (layout_.marks.size() > 1)
        first = std::min(first, layout_.marks[1].offset);
    return std::max(layout_.bodyOffset, first == 0 ? 0 : int(text_.lastIndexOf(u'\n', first - 1)) + 1);
}

bool BarredMeasures::cutsTuplet(int offset) const
{
    const auto behind = std::find_if(layout_.units.begin(), layout_.units.end(),
                                     [&](const AbcUnit &unit) { return !unit.isGap && unit.range.offset >= offset; });
    return behind != layout_.units.end() && behind->continuesTuplet;
}

namespace {

std::vector<Starts> startsAround(const AbcReading &reading, const std::vector<int> &elementOfToken, int begin, int end)
{
    const auto &layout = reading.layout;
    std::vector<Starts> starts(size_t(reading.track.events().size()));
    for (int i = 0; i < layout.tokens.size(); ++i) {
        const auto &token = layout.tokens[i];
        if (token.event < 0)
            continue;
        auto &note = starts[size_t(token.event)];
        const auto part = token.range.offset < begin ? Before : token.range.offset < end ? Within : Behind;
        if (!note.of[part])
            note.of[part] = layout.elements[elementOfToken[size_t(i)]].start;
        if (part == Before)
            note.lastBefore = i;
    }
    return starts;
}

} // namespace

// Those before the stretch that lead nowhere then, or where they should not.
std::vector<TextRange> BarredMeasures::tiesAcross(const Stretch &stretch) const
{
    std::vector<TextRange> ties;
    std::vector<TextRange> kept;
    const bool isPlace = stretch.begin == stretch.end;
    for (const auto &note : startsAround(reading_, elementOfToken_, stretch.begin, stretch.end)) {
        if (note.lastBefore < 0 || !layout_.tokens[note.lastBefore].isTied)
            continue;
        const auto &token = layout_.tokens[note.lastBefore];
        const auto &element = layout_.elements[elementOfToken_[size_t(note.lastBefore)]];
        const auto tie = ownTie(token).isEmpty() ? chordTie(element) : ownTie(token);
        const bool goesOn = note.of[Behind].has_value();
        const bool isLost = !goesOn && !note.of[Within] && element.end() < stretch.time + (isPlace ? 1 : 0);
        if (!isLost && (isPlace || !goesOn))
            ties.push_back(tie);
        else
            kept.push_back(tie);
    }
    const auto isKept = [&](const TextRange &tie) {
        return std::any_of(kept.begin(), kept.end(), [&](const TextRange &own) { return own.offset == tie.offset; });
    };
    if (!isPlace)
        ties.erase(std::remove_if(ties.begin(), ties.end(), isKept), ties.end());
    return ties;
}

// As they are to be.
std::vector<NoteSpec> BarredMeasures::notesAround(const Stretch &stretch) const
{
    std::vector<NoteSpec> notes;
    const auto starts = startsAround(reading_, elementOfToken_, stretch.begin, stretch.end);
    for (int i = 0; i < reading_.track.events().size(); ++i) {
        const auto &event = reading_.track.events()[i];
        const auto &[before, within, behind] = starts[size_t(i)].of;
        if (!event.isNote())
            continue;
        const auto spec = specOf(event);
        const auto end = spec.start + spec.length;
        const auto endBefore = within.value_or(behind.value_or(end));
        const bool isJoined = before && behind && stretch.begin != stretch.end;
        if (before)
            notes.push_back({*before, endBefore - *before + (isJoined ? end - *behind : 0), spec.pitch});
        if (behind && !isJoined)
            notes.push_back({*behind + stretch.shift, end - *behind, spec.pitch});
    }
    std::sort(notes.begin(), notes.end());
    return notes;
}

Result BarredMeasures::checked(const QString &text, const Stretch &stretch, Ticks end) const
{
    const auto found = readAbc(text).track;
    if (fieldsBehind(found, end + stretch.shift, 0) != fieldsBehind(reading_.track, end, stretch.shift))
        return {{}, Obstacle::Overlap};
    std::vector<NoteSpec> notes;
    for (const auto &event : found.events()) {
        if (event.isNote())
            notes.push_back(specOf(event));
    }
    std::sort(notes.begin(), notes.end());
    return notes == notesAround(stretch) ? Result{text, Obstacle::None} : Result{{}, Obstacle::Overlap};
}

Result BarredMeasures::inserted(Ticks at, Ticks length) const
{
    const Stretch place{behindBarLine(at), behindBarLine(at), at, length};
    if (cutsTuplet(place.begin))
        return {{}, Obstacle::Tuplet};
    const bool hasBarLines = layout_.marks.size() > 1;
    TextErasure result(text_);
    for (const auto &tie : tiesAcross(place))
        result.erase(tie);
    const auto rest = u'z' + lengthText(length, reading_.unitLength);
    result.insert(place.begin, at > 0 ? u' ' + rest + QStringLiteral(" |")
                                      : rest + (hasBarLines ? QStringLiteral(" |\n") : QStringLiteral("\n")));
    return checked(result.text(), place, at);
}

// A bar line that says more than that a measure ends stays, in the place of one that does not where fields do not stand
// between.
Result BarredMeasures::removed(Ticks from, Ticks to) const
{
    const auto first = barLineAt(from);
    const auto last = barLineAt(to);
    const auto end = last >= 0 ? behindBarLine(to) : layout_.units.last().range.offset;
    const Stretch stretch{behindBarLine(from), end, from, from - to};
    if (cutsTuplet(stretch.begin) || (last >= 0 && cutsTuplet(stretch.end)))
        return {{}, Obstacle::Tuplet};
    TextErasure result(text_);
    result.eraseMusic(stretch.begin, stretch.end);
    if (result.text() == text_)
        return {{}, Obstacle::NoMeasure};
    for (const auto &tie : tiesAcross(stretch))
        result.erase(tie);
    const QString plain(u'|');
    if (first >= 0 && last >= 0 && barLineText(first) == plain && barLineText(last) != plain) {
        const TextRange closing{layout_.marks[last].offset, int(barLineText(last).size())};
        auto otherwise = result;
        otherwise.moveBack(closing, layout_.marks[first].offset);
        if (auto moved = checked(otherwise.text(), stretch, to); moved.isDone())
            return moved;
    }
    return checked(result.text(), stretch, to);
}

Result BarredMeasures::restChanged(Ticks from, Ticks to, Ticks by) const
{
    const auto rest =
        std::find_if(layout_.elements.begin(), layout_.elements.end(), [&](const AbcTextElement &element) {
            return element.isMeasuresRest && element.start <= from && to <= element.end();
        });
    const auto measure = rest == layout_.elements.end() ? 0 : rest->measureOfRest();
    if (measure == 0 || (from - rest->start) % measure != 0 || by % measure != 0 || rest->written.denominator != 1)
        return {{}, Obstacle::NoBarLine};
    const auto count = qint64(rest->written.numerator) + by / measure;
    if (count < 1)
        return {{}, Obstacle::NoBarLine};
    TextErasure result(text_);
    result.erase({rest->range.offset + 1, rest->range.length - 1});
    result.insert(rest->range.offset + 1, count == 1 ? QString() : QString::number(count));
    return checked(result.text(), {rest->range.end(), rest->range.end(), to, by}, to);
}
