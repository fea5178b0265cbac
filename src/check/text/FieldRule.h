#pragma once

#include "check/text/TextRule.h"

// Fields that the game does not read as they are meant.
class FieldRule : public TextRule
{
public:
    using TextRule::TextRule;
    void bodyBegins(int line, quint32 keyRow);
    void token(const AbcToken &token);

private:
    void judge(const AbcToken &token);
    void add(FindingKind kind, const AbcToken &token, const QStringList &values = {});

    quint32 unitLength_ = ticksPerQuarter; // of the header
};
