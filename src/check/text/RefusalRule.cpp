#include "check/text/RefusalRule.h"

#include "edit/AbcReading.h"

void RefusalRule::refused(AbcRefusal why, const AbcToken &first, const AbcToken &last)
{
    if (!out_.hasRoomFor(FindingKind::RefusedText))
        return;
    const auto begin = out_.rangeOf(first).offset;
    auto end = out_.rangeOf(last).end();
    if (why == AbcRefusal::HeaderText) {
        const auto lineEnd = int(out_.text().indexOf(u'\n', begin));
        end = lineEnd < 0 ? int(out_.text().size()) : lineEnd;
    }
    out_.add({FindingKind::RefusedText, {begin, end - begin}, out_.position, {refusalText(why, first)}});
}
