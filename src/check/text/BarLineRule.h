#pragma once

#include "check/text/TextRule.h"

#include <vector>

// Bar lines that move the music: the game counts a measure at each, whatever stands before it. What they do behind the
// last note or rest is not heard.
class BarLineRule : public TextRule
{
public:
    using TextRule::TextRule;
    void token(const AbcToken &token);
    void elementBegins(const AbcToken &first);
    void barLine(const AbcToken &token, Ticks position);
    void textEnds(const Track &track);

private:
    struct BarLine
    {
        TextRange range;
        Ticks before = 0; // where the music stood, and where the bar line put it
        Ticks position = 0;
    };

    void judgeBarLines();
    void judgeMeasure(const BarLine &bar);
    void addEmptyMeasure(size_t index);
    TextChange withoutEmptyMeasure(size_t index) const;
    bool isPlainBar(const TextRange &range) const;

    std::vector<BarLine> bars_; // since the last note or rest
    bool hasMusic_ = false;     // before them
    int musicOffset_ = -1;      // where the characters of the first measure's music begin
    bool isFirstMeasure_ = true;
    Ticks pickUpGap_ = 0; // by how much it is short
    Finding pickUp_;
};
