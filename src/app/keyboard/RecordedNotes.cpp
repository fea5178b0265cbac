#include "app/keyboard/RecordedNotes.h"

#include <algorithm>
#include <map>

namespace {

Ticks nearestPoint(Ticks tick, const Measures &measures, Ticks step)
{
    const auto measure = measures.at(tick);
    const auto steps = (tick - measure.start + step / 2) / step;
    return std::min(measure.start + steps * step, measure.end);
}

} // namespace

QVector<NoteSpec> onGrid(const QVector<NoteSpec> &played, const Measures &measures, Ticks step)
{
    QVector<NoteSpec> notes;
    for (const auto &note : played) {
        const auto start = nearestPoint(note.start, measures, step);
        const auto end = nearestPoint(note.start + note.length, measures, step);
        notes.append({start, std::max(end - start, step), note.pitch});
    }
    std::sort(notes.begin(), notes.end(), std::greater());
    std::map<quint32, Ticks> nextStarts; // by pitch
    QVector<NoteSpec> kept;
    for (auto note : notes) { // the last first, and of equal starts the longest
        const auto next = nextStarts.find(note.pitch);
        if (next != nextStarts.end() && next->second == note.start)
            continue;
        if (next != nextStarts.end())
            note.length = std::min(note.length, next->second - note.start);
        nextStarts[note.pitch] = note.start;
        kept.prepend(note);
    }
    return kept;
}
