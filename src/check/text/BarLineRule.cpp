#include "check/text/BarLineRule.h"

#include "check/findings/FindingKinds.h"
#include "core/HeaderFields.h"
#include "edit/NoteSpelling.h"

#include <algorithm>
#include <utility>

namespace {

bool isPartOfMusic(AbcTokenType type)
{
    switch (type) {
    case AbcTokenType::WhiteSpace:
    case AbcTokenType::FieldLine:
    case AbcTokenType::InlineField:
    case AbcTokenType::Instruction:
    case AbcTokenType::Comment:
    case AbcTokenType::LineBreak:
    case AbcTokenType::LineContinuation:
    case AbcTokenType::BarLine:
        return false;
    default:
        return true;
    }
}

} // namespace

void BarLineRule::token(const AbcToken &token)
{
    if (musicOffset_ < 0 && isPartOfMusic(token.type))
        musicOffset_ = out_.rangeOf(token).offset;
}

void BarLineRule::barLine(const AbcToken &token, Ticks position)
{
    bars_.push_back({out_.rangeOf(token), out_.position, position});
    if (!hasMusic_)
        musicOffset_ = -1;
}

void BarLineRule::elementBegins(const AbcToken &)
{
    if (!bars_.empty()) {
        judgeBarLines();
        bars_.clear();
    }
    hasMusic_ = true;
}

// Of a bar line that goes back and one that goes on as far, nothing is heard.
void BarLineRule::judgeBarLines()
{
    const auto moved = bars_.back().position - bars_.front().before;
    if (moved != 0 && hasMusic_)
        judgeMeasure(bars_.front());
    for (size_t i = hasMusic_ ? 1 : 0; moved > 0 && i < bars_.size(); ++i) {
        if (bars_[i].position > bars_[i].before)
            addEmptyMeasure(i);
    }
    isFirstMeasure_ &= !hasMusic_;
}

void BarLineRule::judgeMeasure(const BarLine &bar)
{
    const auto gap = bar.position - bar.before;
    const auto kind = gap < 0           ? FindingKind::BarLineOverlap
                      : isFirstMeasure_ ? FindingKind::PickUp
                                        : FindingKind::BarLineSilence;
    if (gap == 0 || !out_.hasRoomFor(kind))
        return;
    const Finding finding{kind, bar.range, bar.before, {lengthInWords(std::abs(gap))}};
    if (kind != FindingKind::PickUp) {
        out_.add(finding);
        return;
    }
    pickUp_ = finding; // its fix needs the unit length
    pickUpGap_ = gap;
}

void BarLineRule::addEmptyMeasure(size_t index)
{
    if (!out_.hasRoomFor(FindingKind::EmptyMeasure))
        return;
    const auto &bar = bars_[index];
    out_.add({FindingKind::EmptyMeasure,
              bar.range,
              bar.before,
              {out_.text().mid(bar.range.offset, bar.range.length)},
              {withoutEmptyMeasure(index)}});
}

// Of two bar lines the one with the signs of a repeat stays; an end and a beginning of one become "::".
TextChange BarLineRule::withoutEmptyMeasure(size_t index) const
{
    const auto &range = bars_[index].range;
    if (index == 0 || isPlainBar(range))
        return {range, {}};
    const auto &before = bars_[index - 1].range;
    if (isPlainBar(before) && index == 1)
        return {before, {}};
    const auto between = out_.text().mid(before.end(), range.offset - before.end());
    const auto isText = [&](const TextRange &bar, QStringView text) {
        return QStringView(out_.text()).mid(bar.offset, bar.length) == text;
    };
    if (isText(before, u":|") && isText(range, u"|:") && between.trimmed().isEmpty() && !between.contains(u'\n'))
        return {{before.offset, range.end() - before.offset}, QStringLiteral("::")};
    return {range, {}};
}

bool BarLineRule::isPlainBar(const TextRange &range) const
{
    return QStringView(out_.text()).mid(range.offset, range.length) == u"|";
}

void BarLineRule::textEnds(const Track &track)
{
    if (pickUpGap_ == 0)
        return;
    const auto unitLength = HeaderFields::parseUnitLength(track.headerField(QStringLiteral("L")));
    pickUp_.fix = {{{musicOffset_, 0}, u'z' + lengthText(pickUpGap_, unitLength) + u' '}};
    out_.add(std::exchange(pickUp_, {}));
}
