#pragma once

#include "check/text/TextRule.h"

#include <optional>

// Signs that come in pairs, of which the other one is missing, and ties at no note.
class PairRule : public TextRule
{
public:
    using TextRule::TextRule;
    void token(const AbcToken &token);
    void refused(AbcRefusal why, const AbcToken &first, const AbcToken &last);
    void textEnds(const Track &track);

private:
    void addStray(const AbcToken &token, QVector<TextChange> fix);
    void addStray(const AbcToken &token) { addStray(token, {{out_.rangeOf(token), {}}}); }

    bool hasChord_ = false;
    bool missesChord_ = false; // its beginning was refused
    int slurs_ = 0;
    std::optional<Finding> graceNotes_; // as they are when nothing closes them
};
