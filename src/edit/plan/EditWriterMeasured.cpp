// How new music is written in measures.
#include "edit/plan/EditWriter.h"
#include "edit/plan/MeasuredText.h"

#include <algorithm>
#include <bit>
#include <cstddef>

namespace {

using Pieces = std::vector<NotePiece>;
constexpr Ticks tripletNotes = 3;

bool isBarLine(const AbcAccidentalMark &mark)
{
    return mark.kind == AbcAccidentalMark::Kind::BarLine;
}

// Whether a third of it is written as a whole note, a half of it, a quarter…
bool isTriplet(Ticks length)
{
    const auto written = length / 2;
    return length % (2 * tripletNotes) == 0 && ticksPerWholeNote % written == 0 &&
           std::has_single_bit(quint64(ticksPerWholeNote / written));
}

// Where the triplet begins that the first of the notes belongs to, with all others that sound in it.
std::optional<Ticks> tripletStart(std::span<const NotePiece> pieces, Ticks measure, Ticks cursor, Ticks limit)
{
    const auto length = pieces.front().length;
    const auto begin = measure + (pieces.front().start - measure) / (tripletNotes * length) * tripletNotes * length;
    const auto end = begin + tripletNotes * length;
    if (!isTriplet(end - begin) || begin < cursor || end > limit)
        return {};
    for (const auto &piece : pieces) {
        if (piece.start >= end)
            break;
        if (piece.isStaccato || piece.length != length || (piece.start - begin) % length != 0)
            return {};
    }
    return begin;
}

// What cannot be tied to a part of it behind a bar line.
bool staysWhole(const Pieces &pieces, const NotePiece &piece)
{
    return piece.isStaccato || std::any_of(pieces.begin(), pieces.end(), [&](const NotePiece &other) {
               return other.pitch == piece.pitch && other.start > piece.start && other.start <= piece.end();
           });
}

// Each in its measure, tied to the rest of it. False where one cannot be.
bool cutAtMeasures(Pieces &pieces, const Measures &measures)
{
    Pieces cut;
    for (auto piece : pieces) {
        for (auto end = measures.at(piece.start).end; end < piece.end(); end = measures.at(piece.start).end) {
            if (staysWhole(pieces, piece))
                return false;
            auto first = piece;
            first.length = end - piece.start;
            first.isTied = first.isAltered = true;
            cut.push_back(first);
            piece.length = piece.end() - end;
            piece.start = end;
            piece.token = -1;
            piece.isAltered = true;
            piece.keepsSpelling = false;
        }
        cut.push_back(piece);
    }
    std::stable_sort(cut.begin(), cut.end(), [](const NotePiece &a, const NotePiece &b) { return a.start < b.start; });
    pieces = std::move(cut);
    return true;
}

} // namespace

bool EditWriter::hasBarLines() const
{
    return std::any_of(layout_.marks.begin() + 1, layout_.marks.end(), isBarLine);
}

// The text has bar lines, or is too short to tell.
bool EditWriter::writesMeasures() const
{
    return hasBarLines() || layout_.units.last().start <= measures_.at(0).end;
}

// A text of one measure gets its first with what goes on behind it, and not because its notes changed.
bool EditWriter::mayAddBarLines(const Pieces &pieces) const
{
    return hasBarLines() || pieces_.addsNotes() ||
           std::any_of(pieces.begin(), pieces.end(),
                       [this](const NotePiece &piece) { return piece.end() > measures_.at(0).end; });
}

bool EditWriter::isInMeasures(const EditRun &run) const
{
    const auto &last = layout_.units[run.last];
    const auto start = layout_.units[run.first].start;
    if (!inMeasures_ || !measures_.sectionAt(start).hasMetre)
        return false;
    return last.end == maxTicks ? barLineBehind(run).has_value() : last.end <= measures_.at(start).end;
}

// When the next bar line stands behind the music; nothing where the measure is too long already.
std::optional<Ticks> EditWriter::barLineBehind(const EditRun &run) const
{
    const auto start = layout_.units[run.first].start;
    const auto &section = measures_.sectionAt(start);
    const auto last = std::find_if(layout_.marks.rbegin(), layout_.marks.rend() - 1, isBarLine);
    const auto begin = last == layout_.marks.rend() - 1 ? section.start : std::max(section.start, last->time);
    const auto end = begin + section.measure;
    return start <= end && (begin - section.start) % section.measure == 0 ? std::optional(end) : std::nullopt;
}

// A first one that begins with a rest is a pick-up, which none counts.
int EditWriter::measuresOfLine(const EditRun &run) const
{
    const auto begin = lineStart(run);
    const auto end = layout_.units[run.first].range.offset;
    const auto count =
        int(std::count_if(layout_.marks.begin() + 1, layout_.marks.end(), [&](const AbcAccidentalMark &mark) {
            return isBarLine(mark) && mark.time > begin && mark.offset < end;
        }));
    const bool hasPickUp = begin == 0 && layout_.units.first().isRest();
    return hasPickUp ? std::max(0, count - 1) : count;
}

void EditWriter::beginMeasured(MeasuredText &music, const EditRun &run)
{
    const auto offset = layout_.units[run.first].range.offset;
    const auto before = layout_.elementAt(offset - 1);
    if (before >= 0 && layout_.elements[before].range.end() == offset)
        music.continueBehind(layout_.elements[before]);
    if (layout_.units[run.last].end == maxTicks)
        music.writeBarLinesFrom(*barLineBehind(run), measuresOfLine(run), [this] { spelling_.nextMeasure(); });
}

std::optional<QString> EditWriter::measuredText(const EditRun &run)
{
    auto pieces = piecesOf(pieces_, run);
    const auto &last = layout_.units[run.last];
    const bool isAtEnd = last.end == maxTicks;
    if (pieces.empty() || !isInMeasures(run) ||
        (isAtEnd && !(mayAddBarLines(pieces) && cutAtMeasures(pieces, measures_))))
        return {};
    MeasuredText music(layout_, measures_, reading_.unitLength, layout_.units[run.first].start);
    beginMeasured(music, run);
    for (std::span<NotePiece> left(pieces); !left.empty();) {
        const auto measure = measures_.at(left.front().start);
        const auto triplet = tripletStart(left, measure.start, music.cursor(), std::min(last.end, measure.end));
        music.addRests(triplet.value_or(left.front().start));
        left = left.subspan(triplet ? writeTriplet(music, left) : writeGroup(music, left, last));
    }
    if (!last.isGap)
        music.addRests(last.end);
    isJoined_ = music.isJoined();
    const auto between = takeBetween(maxTicks);
    return between.isEmpty() ? music.take() : music.take() + u' ' + between;
}

size_t EditWriter::writeGroup(MeasuredText &music, std::span<NotePiece> pieces, const AbcUnit &last)
{
    const auto end = endOfChord(pieces);
    const auto next = end < pieces.size() ? pieces[end].start : last.isGap ? maxTicks : last.end;
    const auto group = groupOf(pieces.first(end), next);
    music.separate(group.advance);
    music.add(takeBetween(music.cursor()) + group.text);
    music.pass(group.advance);
    return end;
}

// Rests fill it, so that its other notes find their places.
size_t EditWriter::writeTriplet(MeasuredText &music, std::span<NotePiece> pieces)
{
    const auto length = pieces.front().length;
    const auto begin = music.cursor();
    music.separate(tripletNotes * length);
    music.add(takeBetween(begin) + QStringLiteral("(3"));
    size_t written = 0;
    for (Ticks note = 0; note < tripletNotes; ++note) {
        const auto at = begin + note * length;
        const auto left = pieces.subspan(written);
        const auto end = left.empty() || left.front().start != at ? 0 : endOfChord(left);
        music.add(takeBetween(at) + tripletNote(left.first(end), length * tripletNotes / 2));
        written += end;
    }
    music.pass(tripletNotes * length);
    return written;
}

QString EditWriter::tripletNote(std::span<const NotePiece> pieces, Ticks written)
{
    const auto length = lengthText(written, reading_.unitLength);
    if (pieces.empty())
        return u'z' + length;
    QString notes;
    for (const auto &piece : pieces)
        notes += pieceText(piece, length);
    return pieces.size() > 1 ? u'[' + notes + u']' : notes;
}
