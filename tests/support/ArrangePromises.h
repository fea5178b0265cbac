#pragma once

#include "arrange/Arrangement.h"
#include "ui/tracks/TrackList.h"

#include <algorithm>
#include <random>

// Random songs for players, and what an arrangement promises of them, checked without its own means.
namespace ArrangePromises {

struct Case
{
    QVector<SourcePart> parts;
    ArrangeOptions options;
};

inline Track randomTrack(std::mt19937 &random, int notes)
{
    const auto below = [&random](int bound) { return int(random() % unsigned(bound)); };
    Track track;
    const int middle = 30 + below(60);
    const int chord = 1 + below(5);
    const Ticks step = ticksPerQuarter / (1 + below(4));
    Ticks at = below(4) * step;
    while (notes > 0) {
        for (int i = below(chord) + 1; i > 0 && notes > 0; --i, --notes)
            track.appendEvent(TrackEvent::note(quint32(middle - 18 + below(36)), at, step * below(6) / 2));
        at += step * below(3);
    }
    track.normalize();
    return track;
}

inline Case randomCase(unsigned seed)
{
    std::mt19937 random(seed);
    const auto below = [&random](int bound) { return int(random() % unsigned(bound)); };
    Case made;
    for (int count = 1 + below(9); count > 0; --count) {
        SourcePart part{randomTrack(random, below(120)), QStringLiteral("Part %1").arg(count)};
        part.instrument = QStringLiteral("Instrument %1").arg(below(4));
        const auto lowest = quint32(21 + below(60));
        part.range = {lowest, lowest + 11 + quint32(below(16))};
        part.isPercussion = below(8) == 0;
        if (below(6) == 0)
            part.track.setTempo(defaultTicksPerMinute / 2);
        made.parts.append(part);
    }
    made.options = {1 + below(8), 1 + below(4)};
    return made;
}

struct Sounding
{
    Ticks start;
    Ticks end;
    quint32 pitch;
};

// As all parts sound in the tempo of the longest, whose ticks the arrangement has.
inline QVector<Sounding> notesOf(const Track &track, qint64 ticksPerMinute)
{
    QVector<Sounding> notes;
    const auto in = [&](Ticks tick) { return tick * ticksPerMinute / track.ticksPerMinute(); };
    for (const auto &event : track.events()) {
        if (event.isNote())
            notes.append({in(event.start()), in(event.end()), event.pitch()});
    }
    return notes;
}

inline qint64 commonTempo(const QVector<SourcePart> &parts)
{
    const auto isShorter = [](const SourcePart &a, const SourcePart &b) { return a.track.length() < b.track.length(); };
    return std::max_element(parts.begin(), parts.end(), isShorter)->track.ticksPerMinute();
}

// The notes that are the highest of their part when they begin; each ends with the next of them.
inline QVector<Sounding> topLine(QVector<Sounding> notes)
{
    const auto isLess = [](const Sounding &a, const Sounding &b) {
        return std::make_tuple(a.start, -qint64(a.pitch), -a.end) < std::make_tuple(b.start, -qint64(b.pitch), -b.end);
    };
    std::sort(notes.begin(), notes.end(), isLess);
    QVector<Sounding> line;
    for (const auto &note : qAsConst(notes)) {
        if (note.end == note.start || (!line.isEmpty() && line.last().start == note.start))
            continue;
        const bool isCovered = std::any_of(notes.cbegin(), notes.cend(), [&](const Sounding &other) {
            return other.start <= note.start && other.end > note.start && other.pitch > note.pitch;
        });
        if (!isCovered)
            line.append(note);
    }
    for (int i = 0; i + 1 < line.size(); ++i)
        line[i].end = std::min(line[i].end, line[i + 1].start);
    return line;
}

inline QString brokenByPart(const ArrangedPart &part, const Case &made)
{
    const auto range = made.parts[part.sources.first()].range;
    const auto notes = notesOf(part.track, part.track.ticksPerMinute());
    for (const auto &note : notes) {
        if (!range.contains(note.pitch))
            return QStringLiteral("a note is out of range");
        const auto atOnce = std::count_if(notes.begin(), notes.end(), [&](const Sounding &other) {
            return other.start <= note.start && other.end > note.start;
        });
        if (atOnce > made.options.voices)
            return QStringLiteral("%1 notes at once").arg(atOnce);
    }
    return {};
}

// Every played note is one of the source, none twice.
inline QString brokenByNotes(const Arrangement &arrangement, const Case &made)
{
    const auto tempo = commonTempo(made.parts);
    QMap<std::pair<Ticks, quint32>, QVector<Ticks>> ends; // by start and pitch class
    for (const auto &part : made.parts) {
        for (const auto &note : notesOf(part.track, tempo))
            ends[{note.start, note.pitch % 12}].append(note.end);
    }
    for (const auto &part : arrangement.parts) {
        for (const auto &note : notesOf(part.track, tempo)) {
            auto &left = ends[{note.start, note.pitch % 12}];
            std::sort(left.begin(), left.end());
            const auto source = std::lower_bound(left.begin(), left.end(), note.end);
            if (source == left.end())
                return QStringLiteral("a note is played that is not there");
            left.erase(source);
        }
    }
    const auto before = arrangement.sumBefore();
    return before.notes - before.droppedInAll() == arrangement.sumAfter().notes
               ? QString()
               : QStringLiteral("the figures do not add up");
}

inline QString brokenByMelody(const Arrangement &arrangement, const Case &made)
{
    if (!arrangement.melody)
        return {};
    const auto tempo = commonTempo(made.parts);
    const auto line = topLine(notesOf(made.parts[*arrangement.melody].track, tempo));
    const auto isWholeIn = [&](const ArrangedPart &part) {
        const auto played = notesOf(part.track, tempo);
        return std::all_of(line.begin(), line.end(), [&](const Sounding &note) {
            return std::any_of(played.begin(), played.end(), [&](const Sounding &other) {
                return other.start == note.start && other.end >= note.end && other.pitch % 12 == note.pitch % 12;
            });
        });
    };
    return line.isEmpty() || std::any_of(arrangement.parts.begin(), arrangement.parts.end(), isWholeIn)
               ? QString()
               : QStringLiteral("the melody is not whole");
}

inline QString textsOf(const SongTracks &song)
{
    QStringList texts;
    for (const auto &track : song) {
        auto copy = *track->track;
        texts.append(track->id + copy.toAbc());
    }
    return texts.join(u'\f');
}

// As one step of a song's history, which is undone and redone.
inline QString brokenByUndo(const Arrangement &arrangement, const Case &made)
{
    TrackList list;
    QVector<NewTrack> sources;
    for (const auto &part : made.parts)
        sources.append({part.track, part.instrument});
    list.add({}, sources);
    const auto before = textsOf(list.song());
    QVector<NewTrack> arranged;
    for (const auto &part : arrangement.parts)
        arranged.append({part.track, {}});
    list.replace({}, list.ids(), arranged);
    const auto after = textsOf(list.song());
    list.history().undo();
    if (textsOf(list.song()) != before)
        return QStringLiteral("undo does not give the song back");
    list.history().redo();
    return textsOf(list.song()) == after ? QString() : QStringLiteral("redo does not give the arrangement back");
}

// What is wrong; empty when nothing is.
inline QString broken(const Arrangement &arrangement, const Case &made)
{
    if (arrangement.parts.size() > made.options.players)
        return QStringLiteral("there are too many parts");
    for (const auto &part : arrangement.parts) {
        if (const auto wrong = brokenByPart(part, made); !wrong.isEmpty())
            return wrong;
    }
    const auto wrong = brokenByNotes(arrangement, made);
    return wrong.isEmpty() ? brokenByMelody(arrangement, made) : wrong;
}

} // namespace ArrangePromises
