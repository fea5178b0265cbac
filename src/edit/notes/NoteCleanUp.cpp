#include "edit/notes/NoteCleanUp.h"

#include "edit/NoteLookup.h"

#include <algorithm>
#include <bitset>
#include <map>
#include <utility>

namespace {

template<typename Predicate>
QVector<int> notesThat(const Track &track, Predicate predicate)
{
    QVector<int> found;
    for (int i = 0; i < track.events().size(); ++i) {
        if (track.events()[i].isNote() && predicate(i))
            found.append(i);
    }
    return found;
}

void addChange(NoteEdit &edit, int note, const NoteSpec &from, const NoteSpec &to)
{
    if (!(from == to))
        edit.changed.append({note, to});
}

Ticks part(Ticks distance, int percent)
{
    return distance * percent / 100;
}

} // namespace

NoteEdit NoteCleanUp::split(const Track &track, const QVector<int> &notes, Ticks at)
{
    NoteEdit edit;
    for (const auto note : notes) {
        const auto spec = specOf(track.events()[note]);
        const auto end = spec.start + spec.length;
        if (at <= spec.start || at >= end)
            continue;
        edit.changed.append(NoteEdit::Change{note, {spec.start, at - spec.start, spec.pitch}});
        edit.inserted.append({at, end - at, spec.pitch});
    }
    return edit;
}

NoteEdit NoteCleanUp::join(const Track &track, const QVector<int> &notes)
{
    std::map<quint32, QVector<int>> byPitch;
    for (const auto note : notes)
        byPitch[track.events()[note].pitch()].append(note);
    NoteEdit edit;
    for (const auto &[pitch, same] : byPitch) {
        if (same.size() < 2)
            continue;
        const auto first = specOf(track.events()[same.first()]);
        auto end = first.start + first.length;
        for (const auto note : same)
            end = std::max(end, track.events()[note].end());
        edit.changed.append(NoteEdit::Change{same.first(), {first.start, end - first.start, pitch}});
        edit.removed += same.mid(1);
    }
    return edit;
}

NoteEdit NoteCleanUp::legato(const Track &track, const QVector<int> &notes)
{
    NoteEdit edit;
    Ticks next = -1;
    Ticks start = -1;
    for (auto note = notes.rbegin(); note != notes.rend(); ++note) {
        const auto spec = specOf(track.events()[*note]);
        if (spec.start != start)
            next = std::exchange(start, spec.start);
        if (next > spec.start)
            addChange(edit, *note, spec, {spec.start, next - spec.start, spec.pitch});
    }
    return edit;
}

NoteEdit NoteCleanUp::scaleLengths(const Track &track, const QVector<int> &notes, int numerator, int denominator)
{
    NoteEdit edit;
    for (const auto note : notes) {
        const auto spec = specOf(track.events()[note]);
        const auto length = scaled(spec.length, quint64(numerator), quint64(denominator));
        addChange(edit, note, spec, {spec.start, std::max(Ticks(1), length), spec.pitch});
    }
    return edit;
}

NoteEdit NoteCleanUp::quantise(const Track &track, const QVector<int> &notes, const Grid &grid, Ticks step,
                               int strength)
{
    NoteEdit edit;
    for (const auto note : notes) {
        const auto spec = specOf(track.events()[note]);
        const auto end = spec.start + spec.length;
        const auto start = spec.start + part(grid(spec.start) - spec.start, strength);
        const auto least = std::min(spec.length, std::max(Ticks(1), step / 2));
        const auto newEnd = std::max(start + least, end + part(grid(end) - end, strength));
        addChange(edit, note, spec, {start, newEnd - start, spec.pitch});
    }
    return edit;
}

QVector<int> NoteCleanUp::inverted(const Track &track, const QVector<int> &notes)
{
    return notesThat(track, [&](int note) { return !std::binary_search(notes.begin(), notes.end(), note); });
}

QVector<int> NoteCleanUp::ofSamePitch(const Track &track, const QVector<int> &notes)
{
    std::bitset<128> pitches;
    for (const auto note : notes)
        pitches.set(track.events()[note].pitch() % 128);
    return notesThat(track, [&](int note) { return pitches[track.events()[note].pitch() % 128]; });
}

QVector<int> NoteCleanUp::betweenTheirPitches(const Track &track, const QVector<int> &notes)
{
    if (notes.isEmpty())
        return {};
    const auto pitchOf = [&](int note) { return track.events()[note].pitch(); };
    const auto [lowest, highest] =
        std::minmax_element(notes.begin(), notes.end(), [&](int a, int b) { return pitchOf(a) < pitchOf(b); });
    return notesThat(track, [low = pitchOf(*lowest), high = pitchOf(*highest), &pitchOf](int note) {
        return pitchOf(note) >= low && pitchOf(note) <= high;
    });
}
