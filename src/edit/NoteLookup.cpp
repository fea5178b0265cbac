#include "edit/NoteLookup.h"

#include <algorithm>
#include <tuple>

namespace {

bool comesBefore(const NoteSpec &a, const NoteSpec &b)
{
    return std::tie(a.start, a.pitch, a.length) < std::tie(b.start, b.pitch, b.length);
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
    const auto &events = track.events();
    std::sort(notes.begin(), notes.end(), comesBefore);
    for (auto first = notes.cbegin(); first != notes.cend();) {
        const auto start = first->start;
        const auto last =
            std::find_if(first, notes.cend(), [start](const NoteSpec &note) { return note.start != start; });
        for (auto i = track.firstEventAtOrAfter(start); i < events.size() && events[i].start() == start; ++i) {
            if (events[i].isNote() && std::binary_search(first, last, specOf(events[i]), comesBefore))
                found.append(i);
        }
        first = last;
    }
    return found;
}
