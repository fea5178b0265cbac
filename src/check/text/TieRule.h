#pragma once

#include "check/text/TextRule.h"
#include "core/AbcParser.h"

#include <vector>

// Ties that no note continues.
class TieRule : public TextRule
{
public:
    using TextRule::TextRule;
    void token(const AbcToken &token);
    void elementBegins(const AbcToken &first);
    void note(const AbcToken &token, const AbcPitch &pitch);
    void elementSounds(Ticks) { sounded_ = element_; }
    void tieLost(const TrackEvent &note);

private:
    struct Tie
    {
        int element = 0; // that it stands in, counted from 1
        TextRange range;
        bool isOfChord = false;
    };
    struct TiesOfPitch
    {
        Tie last;
        Tie before;
    };

    void add(quint32 pitch, const AbcToken &token, bool isOfChord);

    std::array<TiesOfPitch, highestPlayablePitch + 1> ties_;
    std::vector<quint32> pitches_; // of the element that is read
    int element_ = 0;
    int sounded_ = 0; // the last one
};
