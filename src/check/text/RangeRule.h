#pragma once

#include "check/text/TextRule.h"

// Notes that no instrument plays.
class RangeRule : public TextRule
{
public:
    using TextRule::TextRule;
    void bodyBegins(int, quint32 keyRow) { keyRow_ = keyRow; }
    void keyChange(const AbcToken &, quint32 keyRow) { keyRow_ = keyRow; }
    void note(const AbcToken &token, const AbcPitch &pitch);

private:
    TextChange folded(const AbcToken &token, const AbcPitch &pitch) const;

    quint32 keyRow_ = 0;
};
