// Notes that are entered letter by letter.
#include "core/AbcParser.h"
#include "core/KeyTable.h"
#include "edit/NoteLookup.h"
#include "ui/roll/RollCommands.h"
#include "ui/roll/RollState.h"

#include <algorithm>
#include <array>

namespace {

constexpr int octave = 12; // in semitones

// From 0 to 11.
int semitonesUp(int from, int to)
{
    return ((to - from) % octave + octave) % octave;
}

} // namespace

// Above the C below it, as the key has it at the cursor.
int RollCommands::semitoneOf(int letter) const
{
    constexpr std::array<int, 7> natural{0, 2, 4, 5, 7, 9, 11};
    const auto &marks = document_.reading().layout.marks;
    const auto behind = std::find_if(marks.begin(), marks.end(),
                                     [this](const AbcAccidentalMark &mark) { return mark.time > state_.cursor; });
    const auto keyRow = behind == marks.begin() ? state_.keyRow : (behind - 1)->keyRow;
    return natural[size_t(letter)] + KeyTable::accidental(keyRow, letter);
}

void RollCommands::enterLetter(int letter)
{
    document_.update();
    const auto up = semitonesUp(state_.cursorPitch, semitoneOf(letter));
    auto pitch = state_.cursorPitch + (up > octave / 2 ? up - octave : up);
    if (!isPlayable(pitch))
        pitch += pitch < int(lowestPlayablePitch) ? octave : -octave;
    placeCursor(state_.cursor, pitch);
    insertAtCursor();
}

void RollCommands::addLetterToChord(int letter)
{
    document_.update();
    const auto chord = specsOf(document_.track(), document_.selectedNotes());
    if (chord.isEmpty())
        return enterLetter(letter);
    auto note = chord.last();
    const auto up = semitonesUp(int(note.pitch), semitoneOf(letter));
    const auto pitch = int(note.pitch) + (up == 0 ? octave : up);
    if (!isPlayable(pitch))
        return;
    note.pitch = quint32(pitch);
    document_.insertNotes({note}, tr("Insert Note"));
    emit cursorCarried(pitch);
    emit noteTouched(pitch);
}

void RollCommands::enterRest()
{
    selectNone();
    setCursor(state_.cursor + newNoteLength());
}

void RollCommands::chooseNewNoteLength(Ticks length)
{
    lastLength_ = length;
    emit newNoteLengthChanged();
}
