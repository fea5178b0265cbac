#include "import/standard/RepeatWalk.h"

#include <algorithm>
#include <bit>

namespace {

using Kind = ScoreItem::Kind;

} // namespace

bool RepeatWalk::step(const ScoreItem &item)
{
    switch (item.kind) {
    case Kind::RepeatStart:
        startRepeat();
        return true;
    case Kind::RepeatEnd:
        endRepeat(item);
        return true;
    case Kind::Ending:
        if ((item.passes & 2) != 0 && hasStrainInEnding())
            beginGroup(strain_);
        if ((item.passes >> pass_ & 1) != 0)
            takeEnding();
        else
            skipEnding();
        return true;
    case Kind::EndingStop:
        ++at_;
        stopEnding();
        return true;
    case Kind::Part: // a heading ends an ending, too, but may stand within a section
        ++at_;
        if (isInEnding_)
            stopEnding();
        return true;
    default:
        ++at_;
        if (const int measures = item.kind == Kind::Bar ? 1 : item.kind == Kind::Sound ? int(item.first) : 0)
            passMeasures(measures);
        return false;
    }
}

void RepeatWalk::takeEnding()
{
    ++at_;
    isInEnding_ = true;
    measuresOfEnding_ = 0;
    strain_ = at_;
}

void RepeatWalk::passMeasures(int count)
{
    constexpr int mostCounted = 1'000'000; // a text that repeats without end comes here for as long
    measuresOfEnding_ = std::min(measuresOfEnding_ + std::min(count, mostCounted), mostCounted);
    if (measuresOfEnding_ == measuresOfLast_)
        strain_ = at_;
}

// Where the last ending has no bar line that ends it, "[2 … |", a repeat or a first ending far behind belongs to a
// strain of its own, which begins where the ending is as long as the one before.
bool RepeatWalk::hasStrainInEnding() const
{
    constexpr int shortestStrain = 4; // measures
    return isInEnding_ && measuresOfLast_ > 0 && measuresOfEnding_ >= measuresOfLast_ + shortestStrain;
}

// A repeat that began with a sign and that the next one meets unended was meant to end there. A sign before the second
// ending, ":| |: [2", begins nothing.
void RepeatWalk::startRepeat()
{
    if (isLaterEndingNext(ahead(at_))) {
        ++at_;
        return;
    }
    if (begun_ == Begun::BySign && pass_ == 1 && !isInEnding_ && soundsSinceStart())
        return goBack();
    beginGroup(++at_, Begun::BySign);
    isInEnding_ = false;
}

bool RepeatWalk::soundsSinceStart() const
{
    const auto begin = items_.begin();
    return std::any_of(begin + start_, begin + at_, [](const ScoreItem &item) { return item.kind == Kind::Sound; });
}

void RepeatWalk::endRepeat(const ScoreItem &item)
{
    if (pass_ < passesOfGroup(int(item.passes)))
        return goBack();
    if (hasStrainInEnding()) {
        beginGroup(strain_);
        return goBack();
    }
    beginGroup(++at_);
    isInEnding_ = false;
}

// Behind a double bar line that ends an ending something new begins; behind others, too, where a repeat may end that no
// sign begins (ABC standard 2.1, section 4.8).
void RepeatWalk::stopEnding()
{
    const bool mayBegin = isInEnding_ || (begun_ == Begun::Silently && !isFirstGroup_ && pass_ == 1);
    if (mayBegin && !isEndingNext(ahead(at_)))
        beginGroup(at_);
    isInEnding_ = false;
}

// An ending of other passes: to its end, a repeat's end, a thick bar line or the next ending.
void RepeatWalk::skipEnding()
{
    auto at = at_ + 1;
    const auto ends = [&](Kind kind) {
        return kind == Kind::RepeatEnd || kind == Kind::EndingStop || kind == Kind::Ending || kind == Kind::RepeatStart;
    };
    while (at < end_ && !ends(items_[int(at)].kind))
        ++at;
    const auto kind = at < end_ ? items_[int(at)].kind : Kind::Ending;
    const bool isOwnEnd = kind == Kind::RepeatEnd || kind == Kind::EndingStop;
    at_ = isOwnEnd ? at + 1 : at;
    if (isOwnEnd && !isEndingNext(ahead(at_)))
        beginGroup(at_);
}

// From the end, so that each item is looked at once. A group ends where the next begins, and at the end of a repeat
// that no ending follows.
void RepeatWalk::lookAhead()
{
    ahead_.resize(std::size_t(end_ - begin_) + 1);
    for (auto at = end_ - 1; at >= begin_; --at) {
        const auto &item = items_[int(at)];
        const auto &next = ahead(at + 1);
        auto &here = ahead_[std::size_t(at - begin_)];
        const bool isStray = item.kind == Kind::RepeatStart && isLaterEndingNext(next);
        const bool isSilent = item.kind == Kind::Bar || item.kind == Kind::Key || item.kind == Kind::Metre ||
                              item.kind == Kind::Tempo || item.kind == Kind::ChordName || isStray;
        here.nextEnding = item.kind == Kind::Ending ? item.passes : isSilent ? next.nextEnding : 0;
        const bool endsGroup =
            (item.kind == Kind::RepeatStart && !isStray) || (item.kind == Kind::RepeatEnd && !isEndingNext(next));
        const int own = item.kind == Kind::Ending ? std::bit_width(item.passes) - 1 : 0;
        here.passes = endsGroup ? quint8(0) : quint8(std::max(int(next.passes), own));
    }
}

// The greatest number of its endings says how often a group is played. Of a first ending alone the second is what
// follows.
int RepeatWalk::passesOfGroup(int withoutEndings) const
{
    const int passes = ahead(start_).passes;
    return passes > 1 ? passes : passes == 1 ? 2 : withoutEndings;
}
