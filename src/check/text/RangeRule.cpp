#include "check/text/RangeRule.h"

#include "core/AbcParser.h"

void RangeRule::note(const AbcToken &token, const AbcPitch &pitch)
{
    if (!isPlayable(pitch.pitch) && out_.hasRoomFor(FindingKind::OutOfRange))
        out_.add({FindingKind::OutOfRange, out_.rangeOf(token), out_.position, {token.text.toString()}});
}
