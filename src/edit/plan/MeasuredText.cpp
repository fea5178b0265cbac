#include "edit/plan/MeasuredText.h"

#include "edit/NoteSpelling.h"

#include <algorithm>

namespace {

constexpr int measuresOnLine = 4;
constexpr int elementsLookedAt = 200;

bool sounds(const AbcTextElement &element)
{
    return element.firstToken < element.endToken;
}

} // namespace

MeasuredText::MeasuredText(const AbcLayout &layout, const Measures &measures, Ticks unitLength, Ticks start)
    : layout_(layout), measures_(measures), unitLength_(unitLength), cursor_(start)
{
}

void MeasuredText::writeBarLinesFrom(Ticks tick, int measuresOfLine, const BarLineWritten &written)
{
    barLine_ = tick;
    barLineWritten_ = written;
    measuresOfLine_ = measuresOfLine;
    if (cursor_ == tick)
        addBarLine();
    else if (measuresOfLine_ >= measuresOnLine && cursor_ == measures_.at(cursor_).start)
        isBehindBarLine_ = true;
}

void MeasuredText::continueBehind(const AbcTextElement &element)
{
    isShort_ =
        sounds(element) && element.end() == cursor_ && isInGroup(element.start, element.advance) && writesGroups();
    isJoined_ = isShort_;
}

// The beat, or three of a compound metre.
Ticks MeasuredText::groupAt(Ticks tick) const
{
    const auto &section = measures_.sectionAt(tick);
    const auto beats = section.measure / section.beat;
    return beats % 3 == 0 && section.beat < ticksPerQuarter ? 3 * section.beat : section.beat;
}

// Whether something stands within a group and is followed by more of it.
bool MeasuredText::isInGroup(Ticks start, Ticks advance) const
{
    const auto group = groupAt(start);
    const auto place = (start - measures_.at(start).start) % group;
    return place + advance < group;
}

// As the text does it.
bool MeasuredText::writesGroups() const
{
    int joined = 0;
    int separate = 0;
    const auto count = int(layout_.elements.size());
    for (auto i = std::max(1, count - elementsLookedAt); i < count; ++i) {
        const auto &element = layout_.elements[i];
        const auto &before = layout_.elements[i - 1];
        if (before.end() == element.start && isInGroup(before.start, before.advance) && sounds(before) &&
            sounds(element))
            ++(before.range.end() == element.range.offset ? joined : separate);
    }
    return joined >= separate;
}

bool MeasuredText::joins(Ticks advance) const
{
    return isShort_ && advance < groupAt(cursor_);
}

void MeasuredText::separate(Ticks advance)
{
    if (isBehindBarLine_ && measuresOfLine_ >= measuresOnLine) {
        text_ += u'\n';
        measuresOfLine_ = 0;
    } else if (!joins(advance) && !text_.isEmpty()) {
        text_ += u' ';
    }
    if (text_.isEmpty())
        isJoined_ = isJoined_ && joins(advance);
    isBehindBarLine_ = false;
}

void MeasuredText::pass(Ticks advance)
{
    isShort_ = isInGroup(cursor_, advance) && writesGroups();
    cursor_ += advance;
    if (barLine_ == cursor_)
        addBarLine();
}

void MeasuredText::addBarLine()
{
    text_ += text_.isEmpty() ? QStringLiteral("|") : QStringLiteral(" |");
    barLine_ = measures_.at(cursor_).end;
    ++measuresOfLine_;
    isBehindBarLine_ = true;
    isShort_ = false;
    barLineWritten_();
}

// They stand by themselves. Up to the next beat, from there in lengths of one, two or four beats that begin where they
// may; a measure in one.
Ticks MeasuredText::restEnd(Ticks until) const
{
    const auto measure = measures_.at(cursor_);
    const auto end = std::min(until, measure.end);
    const auto group = groupAt(cursor_);
    const auto place = cursor_ - measure.start;
    if (place == 0 && end == measure.end)
        return end;
    if (place % group != 0)
        return std::min(end, cursor_ + group - place % group);
    auto length = group;
    while (place % (2 * length) == 0 && cursor_ + 2 * length <= end)
        length *= 2;
    return std::min(end, cursor_ + length);
}

void MeasuredText::addRests(Ticks until)
{
    while (cursor_ < until) {
        const auto length = restEnd(until) - cursor_;
        isShort_ = false;
        separate(length);
        text_ += u'z' + lengthText(length, unitLength_);
        pass(length);
        isShort_ = false;
    }
}
