#include "edit/NoteLookup.h"

#include <algorithm>
#include <map>
#include <set>

namespace {

// Calls visit(int index) for the notes that begin at the tick.
template<typename Visit>
void forEachNoteAt(const Track &track, Ticks start, Visit visit)
{
    const auto &events = track.events();
    for (auto i = track.firstEventAtOrAfter(start); i < events.size() && events[i].start() == start; ++i) {
        if (events[i].isNote())
            visit(i);
    }
}

} // namespace

NoteSpec specOf(const TrackEvent &note)
{
    return {note.start(), note.length(), note.pitch()};
}

QVector<NoteSpec> specsOf(const Track &track, const QVector<int> &notes)
{
    QVector<NoteSpec> specs;
    specs.reserve(notes.size());
    for (const auto note : notes)
        specs.append(specOf(track.events()[note]));
    return specs;
}

// Each start is looked at once, so that a chord of thousands is found as fast as a tune.
QVector<int> findNotes(const Track &track, QVector<NoteSpec> notes)
{
    QVector<int> found;
    std::sort(notes.begin(), notes.end());
    for (auto first = notes.cbegin(); first != notes.cend();) {
        const auto start = first->start;
        const auto last =
            std::find_if(first, notes.cend(), [start](const NoteSpec &note) { return note.start != start; });
        forEachNoteAt(track, start, [&](int index) {
            if (std::binary_search(first, last, specOf(track.events()[index])))
                found.append(index);
        });
        first = last;
    }
    return found;
}

QVector<NoteSpec> firstNotesLike(const Track &track, const QVector<NoteSpec> &notes)
{
    std::set<Ticks> seenStarts;
    std::map<std::pair<Ticks, quint32>, Ticks> lengths;
    QVector<NoteSpec> result;
    result.reserve(notes.size());
    for (const auto &note : notes) {
        if (seenStarts.insert(note.start).second) {
            forEachNoteAt(track, note.start, [&](int index) {
                const auto &event = track.events()[index];
                lengths.try_emplace({event.start(), event.pitch()}, event.length());
            });
        }
        const auto length = lengths.find({note.start, note.pitch});
        result.append({note.start, length != lengths.end() ? length->second : 0, note.pitch});
    }
    return result;
}
