#pragma once

#include "core/Track.h"
#include "edit/AbcReading.h"
#include "edit/NoteEdit.h"
#include "edit/TextChange.h"
#include "edit/plan/NotePieces.h"

#include <optional>

// Edits in terms of notes, turned into edits of the text.
namespace NoteEditPlan {

// The edit with every number in its range and without what changes nothing.
NoteEdit cleaned(const Track &track, NoteEdit edit);

// The track behind the edit, without a text. The edit must be cleaned.
Track editedTrack(const Track &track, const NoteEdit &edit);

// The fewest changes within the reach that should make the text read as the edited track, in the order of the text;
// nothing where only a new text can. The caller reads the changed text and compares: rare notations make a plan that
// does not hold.
std::optional<QVector<TextChange>> textChanges(const QString &text, const AbcReading &reading, const NoteEdit &edit,
                                               EditReach reach, EditLayout layout = EditLayout::InMeasures);

// Whether the two hold the same notes and the same other events.
bool haveSameEvents(const Track &a, const Track &b);

struct Plan
{
    bool rewritesAll = false;    // nothing is left of bar lines, comments and chord symbols
    QVector<TextChange> changes; // in the order of the text
    AbcReading reading;          // of the text behind the changes
    QVector<NoteSpec> touched;   // the changed and the inserted notes
};

// How to change only the characters that must be, where that does not hold only the measures that the edit reaches
// into, and where that does not either, to write the text anew. Nothing when the edit changes nothing.
std::optional<Plan> plan(const QString &text, const AbcReading &reading, const NoteEdit &edit);

} // namespace NoteEditPlan
