#include "ui/roll/RollCommands.h"

#include "core/AbcParser.h"
#include "edit/NoteLookup.h"
#include "edit/notes/NotesAsAbc.h"
#include "ui/roll/RollState.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QMimeData>

#include <algorithm>
#include <iterator>

namespace {

const QLatin1String abcMimeType("text/vnd.abc");

constexpr int pauseBetweenGestures = 1000; // ms

} // namespace

RollCommands::RollCommands(EditorDocument &document, const RollState &state, QObject *parent)
    : QObject(parent), document_(document), state_(state)
{
    pause_.setSingleShot(true);
    pause_.setInterval(pauseBetweenGestures);
}

void RollCommands::setCursor(Ticks tick)
{
    setCursor(tick, state_.cursorPitch);
}

void RollCommands::setCursor(Ticks tick, int pitch)
{
    placeCursor(tick, pitch);
    document_.setCaretTick(state_.cursor);
}

void RollCommands::placeCursor(Ticks tick, int pitch)
{
    emit cursorPlaced(std::clamp(tick, Ticks(0), maxTicks),
                      std::clamp(pitch, int(lowestPlayablePitch), int(highestPlayablePitch)));
}

void RollCommands::setCursorToEnd()
{
    setCursor(state_.length);
}

QVector<NoteSpec> RollCommands::selectedSpecs() const
{
    return specsOf(document_.track(), document_.selectedNotes());
}

bool RollCommands::changeSelected(const Changer &change, const QString &name)
{
    document_.update();
    NoteEdit edit;
    edit.changed.reserve(document_.selectedNotes().size());
    for (const auto note : document_.selectedNotes()) {
        auto spec = specOf(document_.track().events()[note]);
        change(spec);
        edit.changed.append({note, spec});
    }
    return !edit.changed.isEmpty() && document_.edit(edit, name);
}

Ticks RollCommands::possibleShift(Ticks ticks) const
{
    return ::possibleShift(selectedSpecs(), ticks);
}

int RollCommands::possibleTransposition(int semitones) const
{
    return ::possibleTransposition(selectedSpecs(), semitones);
}

Ticks RollCommands::possibleGrowth(Ticks ticks) const
{
    for (const auto &note : selectedSpecs()) {
        const auto least = std::min(note.length, state_.snap.step());
        ticks = std::clamp(ticks, least - note.length, maxTicks - note.start - note.length);
    }
    return ticks;
}

void RollCommands::moveNotes(Ticks ticks, int semitones)
{
    document_.update();
    const auto move = NoteMove(document_.track(), document_.selectedNotes());
    const auto moved = move.further(ticks, semitones);
    if (!moved.isAsFarAs(move) && document_.edit(moved.edit(), nameOf(moved)))
        tellMoved(moved);
}

QString RollCommands::nameOf(const NoteMove &move)
{
    return move.isInTime() ? tr("Move Notes") : tr("Transpose Notes");
}

void RollCommands::tellMoved(const NoteMove &move)
{
    if (const auto notes = move.moved(); !notes.isEmpty())
        emit cursorCarried(int(notes.first().pitch));
    emit notesMoved();
    if (const auto replaced = move.replacedCount(); replaced > 0)
        emit said(tr("Replaces %n note(s) of the same pitch here", nullptr, replaced));
}

bool RollCommands::isInGesture() const
{
    return pause_.isActive() && document_.isInGesture() && document_.selectedNotes() == gestureSelection_;
}

void RollCommands::moveByKeys(Ticks ticks, int semitones)
{
    const bool goesOn = isInGesture();
    if (!goesOn) {
        document_.update();
        gesture_ = NoteMove(document_.track(), document_.selectedNotes());
    }
    const auto next = gesture_.further(ticks, semitones);
    if (next.isAsFarAs(gesture_))
        return;
    const auto edit = next.edit();
    if (!(goesOn ? document_.editInstead(edit, nameOf(next)) : document_.beginGesture(edit, nameOf(next))))
        return;
    gesture_ = next;
    gestureSelection_ = document_.selectedNotes();
    pause_.start();
    tellMoved(next);
}

void RollCommands::copyNotes(Ticks ticks, int semitones)
{
    const auto transposition = possibleTransposition(semitones);
    auto notes = selectedSpecs();
    for (auto &note : notes)
        note.pitch = quint32(int(note.pitch) + transposition);
    insertSelected(notes, possibleShift(ticks), tr("Copy Notes"));
}

void RollCommands::moveByStep(Direction direction)
{
    const auto step = int(direction) * state_.snap.step();
    if (document_.selectedNotes().isEmpty())
        setCursor(state_.cursor + step);
    else
        moveByKeys(step, 0);
}

void RollCommands::moveByMeasure(Direction direction)
{
    const auto &measures = state_.measures;
    const auto notes = selectedSpecs();
    if (notes.isEmpty()) {
        setCursor(direction == Direction::Forward ? measures.nextStart(state_.cursor)
                                                  : measures.previousStart(state_.cursor));
        return;
    }
    // By the length of the measure that is passed, so that the notes keep their place in it.
    const auto measure = measures.at(notes.first().start);
    const auto passed = direction == Direction::Forward ? measure : measures.at(std::max(Ticks(0), measure.start - 1));
    moveByKeys(int(direction) * (passed.end - passed.start), 0);
}

void RollCommands::moveBySemitones(int semitones)
{
    if (document_.selectedNotes().isEmpty())
        setCursor(state_.cursor, state_.cursorPitch + semitones);
    else
        moveByKeys(0, semitones);
    emit noteTouched(state_.cursorPitch);
}

void RollCommands::resizeByStep(Direction direction)
{
    resizeNotes(int(direction) * state_.snap.step());
}

void RollCommands::resizeNotes(Ticks ticks)
{
    const auto growth = possibleGrowth(ticks);
    if (growth == 0 || !changeSelected([growth](NoteSpec &note) { note.length += growth; }, tr("Resize Notes")))
        return;
    if (const auto notes = selectedSpecs(); !notes.isEmpty())
        chooseNewNoteLength(notes.last().length);
    emit notesMoved();
}

Ticks RollCommands::newNoteLength() const
{
    return lastLength_.value_or(document_.unitLength() > 0 ? document_.unitLength() : state_.snap.step());
}

void RollCommands::insertAtCursor()
{
    const NoteSpec note{state_.cursor, newNoteLength(), quint32(state_.cursorPitch)};
    insertNote(note);
    placeCursor(note.start + note.length, state_.cursorPitch);
    emit noteTouched(int(note.pitch));
}

void RollCommands::insertNote(const NoteSpec &note)
{
    document_.update();
    if (document_.insertNotes({note}, tr("Insert Note")))
        chooseNewNoteLength(note.length);
    emit cursorCarried(int(note.pitch));
}

void RollCommands::insertChordAtCursor(const QVector<quint32> &pitches)
{
    const auto length = newNoteLength();
    QVector<NoteSpec> notes;
    for (const auto pitch : pitches)
        notes.append({state_.cursor, length, pitch});
    const auto end = state_.cursor + length;
    document_.update();
    document_.insertNotes(notes, tr("Enter Notes"));
    placeCursor(end, int(pitches.last()));
}

void RollCommands::removeSelected()
{
    document_.update();
    const auto notes = document_.selectedNotes();
    if (!notes.isEmpty())
        document_.removeNotes(notes, tr("Delete Notes"));
}

void RollCommands::cut()
{
    const auto notes = selectedSpecs();
    if (notes.isEmpty())
        return;
    copy();
    document_.update();
    document_.removeNotes(document_.selectedNotes(), tr("Cut Notes"));
    placeCursor(notes.first().start, state_.cursorPitch);
}

void RollCommands::copy()
{
    if (document_.selectedNotes().isEmpty())
        return;
    const auto abc = notesAsAbc(document_.track(), selectedSpecs());
    auto *data = new QMimeData; // the clipboard takes it
    data->setData(abcMimeType, abc.toUtf8());
    data->setText(bodyOfAbc(abc));
    QGuiApplication::clipboard()->setMimeData(data);
}

QVector<NoteSpec> RollCommands::clipboardNotes() const
{
    const auto *data = QGuiApplication::clipboard()->mimeData();
    if (data == nullptr)
        return {};
    const auto abc = data->hasFormat(abcMimeType) ? QString::fromUtf8(data->data(abcMimeType)) : data->text();
    return notesFromAbc(document_.track(), abc);
}

void RollCommands::paste()
{
    const auto notes = clipboardNotes();
    if (notes.isEmpty())
        return;
    insertSelected(notes, state_.cursor, tr("Paste Notes"));
    Ticks end = 0;
    for (const auto &note : notes)
        end = std::max(end, note.start + note.length);
    placeCursor(state_.cursor + end, state_.cursorPitch);
}

void RollCommands::duplicate()
{
    const auto notes = selectedSpecs();
    if (notes.isEmpty())
        return;
    Ticks end = 0;
    for (const auto &note : notes)
        end = std::max(end, note.start + note.length);
    insertSelected(notes, end - notes.first().start, tr("Duplicate Notes"));
}

void RollCommands::insertSelected(QVector<NoteSpec> notes, Ticks shift, const QString &name)
{
    document_.update();
    for (auto &note : notes)
        note.start += shift;
    if (document_.insertNotes(notes, name))
        emit notesMoved();
}

void RollCommands::select(const QVector<int> &events, Selecting selecting)
{
    const auto &before = document_.selectedNotes();
    QVector<int> selected;
    if (selecting == Selecting::Toggle)
        std::set_symmetric_difference(before.begin(), before.end(), events.begin(), events.end(),
                                      std::back_inserter(selected));
    else if (selecting == Selecting::Extend)
        std::set_union(before.begin(), before.end(), events.begin(), events.end(), std::back_inserter(selected));
    else
        selected = events;
    document_.selectNotes(selected);
}

void RollCommands::selectAll()
{
    QVector<int> notes;
    notes.reserve(state_.notes.count());
    for (int note = 0; note < state_.notes.count(); ++note)
        notes.append(state_.notes[note].event);
    document_.selectNotes(notes);
}

void RollCommands::selectNone()
{
    document_.selectNotes({});
}

void RollCommands::selectNeighbour(Direction direction, Selecting selecting)
{
    const auto &notes = state_.notes;
    const auto &selected = document_.selectedNotes();
    int neighbour = 0;
    if (selected.isEmpty()) {
        const auto atCursor = notes.firstStartingAtOrAfter(state_.cursor);
        neighbour = direction == Direction::Forward ? atCursor : atCursor - 1;
    } else {
        neighbour =
            direction == Direction::Forward ? notes.ofEvent(selected.last()) + 1 : notes.ofEvent(selected.first()) - 1;
    }
    if (neighbour < 0 || neighbour >= notes.count())
        return;
    select({notes[neighbour].event}, selecting);
    emit noteTouched(notes[neighbour].pitch);
    emit notesMoved();
}
