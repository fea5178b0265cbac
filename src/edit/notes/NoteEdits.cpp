#include "edit/notes/NoteEdits.h"

#include "core/AbcParser.h"
#include "edit/NoteLookup.h"

#include <algorithm>
#include <map>

namespace {

QVector<int> namedOrAll(const Track &track, const QVector<int> &notes)
{
    if (!notes.isEmpty())
        return notes;
    QVector<int> all;
    for (int i = 0; i < track.events().size(); ++i) {
        if (track.events()[i].isNote())
            all.append(i);
    }
    return all;
}

// A note keeps its place in the text while its time and length change.
std::pair<quint32, quint32> placeOf(const TrackEvent &note)
{
    return {note.textLine(), note.textColumn()};
}

} // namespace

NoteEdit NoteEdits::between(const Track &before, const Track &after, const QVector<int> &notes)
{
    std::map<std::pair<quint32, quint32>, NoteSpec> places;
    for (const auto &event : after.events()) {
        if (event.isNote())
            places.emplace(placeOf(event), specOf(event));
    }
    NoteEdit edit;
    for (const auto note : namedOrAll(before, notes)) {
        const auto &event = before.events()[note];
        const auto found = places.find(placeOf(event));
        if (found == places.end())
            edit.removed.append(note);
        else if (!(found->second == specOf(event)))
            edit.changed.append({note, found->second});
    }
    return edit;
}

NoteEdit NoteEdits::transposition(const Track &track, const QVector<int> &notes, int semitones)
{
    NoteEdit edit;
    for (const auto note : namedOrAll(track, notes)) {
        auto spec = specOf(track.events()[note]);
        const auto pitch = qint64(spec.pitch) + semitones;
        spec.pitch = quint32(pitch);
        if (!isPlayable(pitch))
            edit.removed.append(note);
        else if (semitones != 0)
            edit.changed.append({note, spec});
    }
    return edit;
}

QVector<NoteSpec> NoteEdits::after(const NoteEdit &edit, const Track &track, const QVector<int> &notes)
{
    std::map<int, NoteSpec> specs;
    for (const auto note : notes)
        specs[note] = specOf(track.events()[note]);
    for (const auto note : edit.removed)
        specs.erase(note);
    for (const auto &change : edit.changed) {
        if (const auto spec = specs.find(change.note); spec != specs.end())
            spec->second = change.to;
    }
    QVector<NoteSpec> result;
    for (const auto &[note, spec] : specs)
        result.append(spec);
    return result;
}
