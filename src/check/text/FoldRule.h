#pragma once

#include "check/text/NoteFixes.h"
#include "check/text/TextRule.h"

#include <array>

// Makes the fixes of notes that are to move by octaves. The notes tied to one move along, and where a note behind takes
// an accidental over from one that moved in front of it, it gets its own.
class FoldRule : public TextRule
{
public:
    // Of playable pitches; the others move into the range.
    FoldRule(TextFindings &out, const OctaveMoves &moves);

    void bodyBegins(int, quint32 keyRow) { keyRow_ = keyRow; }
    void keyChange(const AbcToken &, quint32 keyRow) { keyRow_ = keyRow; }
    void elementBegins(const AbcToken &) { ofElement_.clear(); }
    void token(const AbcToken &token);
    void note(const AbcToken &token, const AbcPitch &pitch);
    void barLine(const AbcToken &, Ticks);

    NoteFixes take() { return std::move(fixes_); }

private:
    // A note that moves, and those tied to it; by the number of its fix.
    struct Move
    {
        int pitch = 0;
        int octaves = 0;
        size_t fix = 0;
    };
    // What holds in the measure for a step; fix: of the note that moved there, counted from 1.
    struct OfStep
    {
        qint8 written = none;
        qint8 moved = none;
        size_t fix = 0;
    };
    static constexpr qint8 none = -128;
    static constexpr int octavesOfSteps = 41; // a note's text is too short for more than 20 up or down

    OfStep &use(int step);
    int octavesOf(int pitch);
    std::optional<Move> moveOf(const AbcToken &token, int pitch);
    void move(const AbcToken &token, const AbcPitch &pitch, const Move &move);
    void keepAccidental(const AbcToken &token, const AbcPitch &pitch, OfStep &here);

    const OctaveMoves &moves_;
    NoteFixes fixes_;
    std::array<int, 2> room_; // for notes out of range, and others
    quint32 keyRow_ = 0;
    std::array<OfStep, size_t(octavesOfSteps * 7)> steps_; // of the measure
    std::vector<OfStep *> used_;                           // of them; a note is cheap where there are none
    std::vector<Move> ties_;                               // that go on
    std::vector<Move> ofElement_;
};
