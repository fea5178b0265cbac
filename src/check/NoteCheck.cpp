#include "check/NoteCheck.h"

#include <queue>

namespace {

void checkNotesAtOnce(const TextCheck &part, const CheckOptions &options, QVector<Finding> &findings)
{
    std::priority_queue<Ticks, std::vector<Ticks>, std::greater<>> ends; // of the notes that sound
    Ticks quietUntil = -1; // one finding is enough while it stays too much
    for (const auto &note : part.track.events()) {
        if (!note.isNote())
            continue;
        while (!ends.empty() && ends.top() <= note.start())
            ends.pop();
        if (int(ends.size()) < options.mostNotesAtOnce)
            quietUntil = -1;
        ends.push(note.start() + note.length());
        if (int(ends.size()) <= options.mostNotesAtOnce || note.start() == quietUntil)
            continue;
        if (findings.size() >= options.mostFindings)
            return;
        quietUntil = note.start();
        findings.append({FindingKind::ManyNotes,
                         textOf(note, part),
                         note.start(),
                         {QString::number(ends.size()), QString::number(options.mostNotesAtOnce)}});
    }
}

} // namespace

TextRange textOf(const TrackEvent &note, const TextCheck &part)
{
    return {part.lines[int(note.textLine())] + int(note.textColumn()), int(note.textLength())};
}

QVector<Finding> checkNotes(const TextCheck &part, const CheckOptions &options)
{
    if (part.track.noteCount() == 0)
        return {{FindingKind::EmptyPart}};
    QVector<Finding> findings;
    if (options.mostNotesAtOnce > 0)
        checkNotesAtOnce(part, options, findings);
    return findings;
}
