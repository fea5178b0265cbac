#include "ui/roll/RollCommands.h"

#include "core/AbcParser.h"
#include "edit/NoteLookup.h"
#include "ui/roll/RollState.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QMimeData>

#include <algorithm>
#include <iterator>

namespace {

const QLatin1String abcMimeType("text/vnd.abc");

// Behind the line of the K: field, which ends the header.
QString bodyOf(const QString &abc)
{
    const auto key = abc.startsWith(QLatin1String("K:")) ? 0 : abc.indexOf(QLatin1String("\nK:")) + 1;
    return abc.mid(abc.indexOf(QLatin1Char('\n'), key) + 1);
}

bool hasHeader(const QString &abc)
{
    return abc.startsWith(QLatin1String("K:")) || abc.contains(QLatin1String("\nK:"));
}

} // namespace

RollCommands::RollCommands(EditorDocument &document, const RollState &state, QObject *parent)
    : QObject(parent), document_(document), state_(state)
{
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
    for (const auto &note : selectedSpecs())
        ticks = std::clamp(ticks, -note.start, maxTicks - note.start - note.length);
    return ticks;
}

int RollCommands::possibleTransposition(int semitones) const
{
    const auto notes = selectedSpecs();
    const bool isPossible = std::all_of(notes.begin(), notes.end(), [semitones](const NoteSpec &note) {
        return isPlayable(qint64(note.pitch) + semitones);
    });
    return isPossible ? semitones : 0;
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
    const auto shift = possibleShift(ticks);
    const auto transposition = possibleTransposition(semitones);
    if (shift == 0 && transposition == 0)
        return;
    const auto move = [shift, transposition](NoteSpec &note) {
        note.start += shift;
        note.pitch = quint32(int(note.pitch) + transposition);
    };
    if (!changeSelected(move, shift == 0 ? tr("Transpose Notes") : tr("Move Notes")))
        return;
    if (const auto notes = selectedSpecs(); !notes.isEmpty())
        emit cursorCarried(int(notes.first().pitch));
    emit notesMoved();
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
        moveNotes(step, 0);
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
    moveNotes(int(direction) * (passed.end - passed.start), 0);
}

void RollCommands::moveBySemitones(int semitones)
{
    if (document_.selectedNotes().isEmpty())
        setCursor(state_.cursor, state_.cursorPitch + semitones);
    else
        moveNotes(0, semitones);
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
        lastLength_ = notes.last().length;
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
        lastLength_ = note.length;
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

// The selected notes as a tune of their own, in the key and unit length of the track.
QString RollCommands::asAbc() const
{
    const auto notes = selectedSpecs();
    Track track;
    for (const auto &field : {QStringLiteral("L"), QStringLiteral("K")}) {
        if (document_.track().hasHeaderField(field))
            track.setHeaderField(field, document_.track().headerField(field));
    }
    for (const auto &note : notes)
        track.appendEvent(TrackEvent::note(note.pitch, note.start - notes.first().start, note.length));
    track.normalize();
    return track.toAbc();
}

void RollCommands::copy()
{
    if (document_.selectedNotes().isEmpty())
        return;
    const auto abc = asAbc();
    auto *data = new QMimeData; // the clipboard takes it
    data->setData(abcMimeType, abc.toUtf8());
    data->setText(bodyOf(abc));
    QGuiApplication::clipboard()->setMimeData(data);
}

QVector<NoteSpec> RollCommands::clipboardNotes() const
{
    const auto *data = QGuiApplication::clipboard()->mimeData();
    if (data == nullptr)
        return {};
    auto abc = data->hasFormat(abcMimeType) ? QString::fromUtf8(data->data(abcMimeType)) : data->text();
    if (!hasHeader(abc)) {
        const auto field = [this](const char *letter) {
            return QLatin1String(letter) + QLatin1Char(':') + document_.track().headerField(QLatin1String(letter)) +
                   QLatin1Char('\n');
        };
        abc = QStringLiteral("X:1\n") + field("L") + field("K") + abc;
    }
    const auto reading = readAbc(abc);
    QVector<NoteSpec> notes;
    for (const auto &event : reading.track.events()) {
        if (event.isNote())
            notes.append(specOf(event));
    }
    return notes;
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
