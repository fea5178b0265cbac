#pragma once

#include "check/text/TextRule.h"

// What the game's reader would end at.
class RefusalRule : public TextRule
{
public:
    using TextRule::TextRule;
    void refused(AbcRefusal why, const AbcToken &first, const AbcToken &last);
};
