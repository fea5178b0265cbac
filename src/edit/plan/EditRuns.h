#pragma once

#include "edit/plan/NotePieces.h"

// Consecutive units that are written anew together.
struct EditRun
{
    enum class Form {
        Free,     // as notes and rests
        Elements, // of one unit, whose elements stay
        Measures, // of a rest of measures, which is cut at bar lines
    };

    int first = 0;
    int last = 0;
    Form form = Form::Free;
};

// In the order of the text. Rests behind a run join it when its last note needs their time, and behind a note that
// went. Private to the planner of edits.
std::vector<EditRun> findEditRuns(const AbcLayout &layout, const NotePieces &pieces);

std::vector<NotePiece> piecesOf(const NotePieces &pieces, const EditRun &run);
