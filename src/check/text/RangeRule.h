#pragma once

#include "check/text/TextRule.h"

// Notes that no instrument plays.
class RangeRule : public TextRule
{
public:
    using TextRule::TextRule;
    void note(const AbcToken &token, const AbcPitch &pitch);
};
