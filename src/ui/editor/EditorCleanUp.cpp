#include "ui/editor/EditorCleanUp.h"

#include "edit/NoteLookup.h"
#include "edit/notes/NoteCleanUp.h"
#include "edit/notes/NoteEdits.h"
#include "ui/document/EditorDocument.h"
#include "ui/roll/RollState.h"

#include <algorithm>

EditorCleanUp::EditorCleanUp(EditorDocument &document, const RollState &roll, QObject *parent)
    : QObject(parent), document_(document), roll_(roll)
{
}

QVector<int> EditorCleanUp::meantNotes() const
{
    const auto &selected = document_.selectedNotes();
    return selected.isEmpty() ? NoteCleanUp::inverted(document_.track(), {}) : selected;
}

// What was selected stays so, with what it became.
void EditorCleanUp::change(const QString &name, const EditMaker &makeEdit)
{
    document_.update();
    const auto selected = document_.selectedNotes();
    const auto edit = makeEdit(document_.track(), meantNotes());
    auto specs = NoteEdits::after(edit, document_.track(), selected);
    if (!selected.isEmpty())
        specs += edit.inserted;
    if (!document_.editAndSelect(edit, name, specs))
        emit said(tr("Nothing to change here."));
}

void EditorCleanUp::split()
{
    change(tr("Split Notes"), [at = roll_.cursor](const Track &track, const QVector<int> &notes) {
        return NoteCleanUp::split(track, notes, at);
    });
}

// Without a selection it would make one long note of each pitch.
void EditorCleanUp::join()
{
    document_.update();
    if (document_.selectedNotes().isEmpty())
        emit said(tr("Select the notes that are to be joined."));
    else
        change(tr("Join Notes"), NoteCleanUp::join);
}

void EditorCleanUp::legato()
{
    change(tr("Legato"), NoteCleanUp::legato);
}

void EditorCleanUp::doubleLengths()
{
    change(tr("Double Lengths"),
           [](const Track &track, const QVector<int> &notes) { return NoteCleanUp::scaleLengths(track, notes, 2, 1); });
}

void EditorCleanUp::halveLengths()
{
    change(tr("Halve Lengths"),
           [](const Track &track, const QVector<int> &notes) { return NoteCleanUp::scaleLengths(track, notes, 1, 2); });
}

void EditorCleanUp::quantise()
{
    quantiseBy(100);
}

void EditorCleanUp::quantiseHalf()
{
    quantiseBy(50);
}

void EditorCleanUp::quantiseBy(int strength)
{
    document_.update();
    const auto nearest = [this](Ticks tick) { return roll_.snap.nearest(tick, roll_.measures); };
    change(tr("Quantise"), [&](const Track &track, const QVector<int> &notes) {
        return NoteCleanUp::quantise(track, notes, nearest, roll_.snap.step(), strength);
    });
}

void EditorCleanUp::invertSelection()
{
    document_.update();
    document_.selectNotes(NoteCleanUp::inverted(document_.track(), document_.selectedNotes()));
}

void EditorCleanUp::selectSamePitch()
{
    document_.update();
    document_.selectNotes(NoteCleanUp::ofSamePitch(document_.track(), document_.selectedNotes()));
}

void EditorCleanUp::selectPitchRange()
{
    document_.update();
    document_.selectNotes(NoteCleanUp::betweenTheirPitches(document_.track(), document_.selectedNotes()));
}

QString EditorCleanUp::sentenceAbout(MeasureChange::Obstacle obstacle)
{
    switch (obstacle) {
    case MeasureChange::Obstacle::None:
        break;
    case MeasureChange::Obstacle::NoMeasure:
        return tr("There is no measure here.");
    case MeasureChange::Obstacle::NoBarLine:
        return tr("No bar line stands where this measure begins or ends by its metre. Write one there first.");
    case MeasureChange::Obstacle::Tuplet:
        return tr("A tuplet goes on behind a bar line here. Let it end before the bar line first.");
    case MeasureChange::Obstacle::Overlap:
        return tr("Other notes would change. Make the measures around here as long as their metre says first.");
    }
    return {};
}

void EditorCleanUp::exchange(const MeasureChange::Result &result, const QString &name)
{
    if (result.isDone())
        document_.replaceText(result.text, name);
    else
        emit said(sentenceAbout(result.obstacle));
}

// In the metre that holds before it.
void EditorCleanUp::insertMeasure()
{
    document_.update();
    const auto at = roll_.measures.at(roll_.cursor).start;
    const auto length = roll_.measures.sectionAt(std::max(Ticks(0), at - 1)).measure;
    exchange(MeasureChange::inserted(document_.text()->toPlainText(), document_.reading(), at, length),
             tr("Insert Measure"));
}

void EditorCleanUp::deleteMeasures()
{
    document_.update();
    const auto specs = specsOf(document_.track(), document_.selectedNotes());
    auto first = specs.isEmpty() ? roll_.cursor : specs.first().start;
    auto last = first;
    for (const auto &note : specs)
        last = std::max(last, note.start);
    first = roll_.measures.at(first).start;
    last = roll_.measures.at(last).end;
    if (first >= document_.track().length())
        emit said(sentenceAbout(MeasureChange::Obstacle::NoMeasure));
    else
        exchange(MeasureChange::removed(document_.text()->toPlainText(), document_.reading(), first, last),
                 tr("Delete Measures"));
}
