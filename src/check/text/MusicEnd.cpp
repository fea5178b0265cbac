#include "check/text/MusicEnd.h"

#include "edit/NoteSpelling.h"

#include <algorithm>

TextChange restsBehind(const MusicEnd &end, Ticks length)
{
    const auto rest = [&](Ticks ticks) { return QStringLiteral(" z") + lengthText(ticks, end.unitLength); };
    const auto fill = end.measureBegin + end.measureTicks - end.position;
    if (end.measureTicks == 0 || fill < 0 || fill > end.measureTicks || length <= fill)
        return {{end.offset, 0}, rest(length)};
    auto text = fill > 0 ? rest(fill) : QString();
    const auto whole = (length - fill) / end.measureTicks;
    if (whole > 0)
        text += QStringLiteral(" | Z") + (whole > 1 ? QString::number(whole) : QString());
    if (const auto left = (length - fill) % end.measureTicks; left > 0)
        text += QStringLiteral(" |") + rest(left);
    return {{end.offset, 0}, text};
}
