#include "core/AbcTokenizer.h"
#include "edit/plan/EditWriter.h"

#include <algorithm>

namespace {

// What of the characters between two elements says nothing about their lengths.
QString withoutRhythm(const QString &text)
{
    QString kept;
    AbcTokenizer tokens(text);
    AbcToken token;
    while (tokens.next(token)) {
        if (token.type == AbcTokenType::WhiteSpace || token.type == AbcTokenType::Tuplet ||
            token.type == AbcTokenType::BrokenRhythm)
            continue;
        kept += token.text;
        if (token.type == AbcTokenType::Comment || token.type == AbcTokenType::LineContinuation)
            kept += u'\n';
    }
    return kept;
}

// A new staccato note has its dot only where it has the time for it.
void dropDots(std::span<NotePiece> chord, Ticks next)
{
    for (auto &piece : chord) {
        if (piece.token >= 0 || !piece.isStaccato || piece.end() <= next)
            continue;
        piece.isStaccato = false;
        piece.length /= 2;
    }
}

} // namespace

Ticks EditWriter::lineStart(const EditRun &run) const
{
    const auto offset = layout_.units[run.first].range.offset;
    const auto line = offset == 0 ? 0 : text_.lastIndexOf(u'\n', offset - 1) + 1;
    const auto element = layout_.elementAt(int(line) - 1) + 1;
    return element < layout_.elements.size() ? layout_.elements[element].start : layout_.units[run.first].start;
}

void EditWriter::collectBetween(const EditRun &run)
{
    between_.clear();
    for (auto unit = run.first; unit <= run.last; ++unit) {
        auto end = layout_.units[unit].range.offset;
        for (auto i = layout_.units[unit].firstElement; i < layout_.units[unit].endElement; ++i) {
            const auto &element = layout_.elements[i];
            const auto text = withoutRhythm(text_.mid(end, element.range.offset - end)) + foreignText(element);
            if (!text.isEmpty())
                between_.push_back({element.start, text});
            end = element.range.end();
        }
    }
}

QString EditWriter::takeBetween(Ticks until)
{
    QString taken;
    auto next = between_.begin();
    for (; next != between_.end() && next->time <= until; ++next)
        taken += next->text;
    between_.erase(between_.begin(), next);
    return taken;
}

size_t EditWriter::endOfChord(std::span<const NotePiece> pieces)
{
    const auto start = pieces.front().start;
    const auto end =
        std::find_if(pieces.begin(), pieces.end(), [start](const NotePiece &piece) { return piece.start != start; });
    return size_t(end - pieces.begin());
}

// What begins together, cut by a rest in its bracket where it sounds beyond the next.
EditWriter::Group EditWriter::groupOf(std::span<NotePiece> chord, Ticks next)
{
    dropDots(chord, next);
    const auto shortest = std::min_element(chord.begin(), chord.end(), [](const NotePiece &a, const NotePiece &b) {
                              return a.length < b.length;
                          })->length;
    const auto advance = std::min(shortest, next - chord.front().start);
    const bool isCut = advance < shortest;
    if (!isCut && sharesLength(chord))
        return {chordText(chord, lengthText(shortest, reading_.unitLength)), advance};
    QString text = isCut ? u'z' + lengthText(advance, reading_.unitLength) : QString();
    for (const auto &piece : chord)
        text += pieceText(piece, lengthOf(piece));
    return {isCut || chord.size() > 1 ? u'[' + text + u']' : text, advance};
}

// The notes as groups with rests between. Behind the end of the music a line ends after each whole note, and no rest is
// left over.
QString EditWriter::musicText(std::vector<NotePiece> pieces, Ticks start, const AbcUnit &last, Ticks lineStart)
{
    const auto unitLength = reading_.unitLength;
    auto cursor = start;
    QString text;
    const auto separate = [&] {
        const bool mayBreak = last.end == maxTicks && (last.start <= start || !text.isEmpty());
        if (mayBreak && cursor - lineStart >= ticksPerWholeNote) {
            text += u'\n';
            lineStart = cursor;
        } else if (!text.isEmpty() && text.back() != u'\n') {
            text += u' ';
        }
        text += takeBetween(cursor);
    };
    const auto rest = [&](Ticks until) {
        if (cursor >= until)
            return;
        separate();
        text += u'z' + lengthText(until - cursor, unitLength);
        cursor = until;
    };
    for (std::span<NotePiece> left(pieces); !left.empty();) {
        rest(left.front().start);
        separate();
        const auto end = endOfChord(left);
        const auto next = end < left.size() ? left[end].start : last.isGap ? maxTicks : last.end;
        const auto group = groupOf(left.first(end), next);
        text += group.text;
        cursor = left.front().start + group.advance;
        left = left.subspan(end);
    }
    if (!last.isGap)
        rest(last.end);
    const auto left = takeBetween(maxTicks);
    return left.isEmpty() ? text : text + u' ' + left;
}

// As it is written, where the note stays as it is and its length counts in units.
QString EditWriter::lengthOf(const NotePiece &piece) const
{
    if (piece.token >= 0 && !piece.isAltered) {
        const auto &token = layout_.tokens[piece.token];
        const bool isPlain = token.written.of(reading_.unitLength) == piece.length;
        if (isPlain && !layout_.units[token.unit].isCompound)
            return keptLength(piece);
    }
    return lengthText(piece.length, reading_.unitLength);
}

QString EditWriter::freeText(const EditRun &run)
{
    collectBetween(run);
    isJoined_ = false;
    if (const auto text = measuredText(run))
        return *text;
    return musicText(piecesOf(pieces_, run), layout_.units[run.first].start, layout_.units[run.last], lineStart(run));
}

// A measure that nothing is left of says that it is one.
QString EditWriter::silenceOf(const EditRun &run) const
{
    const auto &units = layout_.units;
    const auto &gap = units[run.last];
    if (!gap.isGap || gap.end == maxTicks || units[run.first].isGap || !beginsMeasure(run.first))
        return {};
    return u'z' + lengthText(gap.start - units[run.first].start, reading_.unitLength);
}

bool EditWriter::beginsMeasure(int unit) const
{
    auto mark = mark_ - 1;
    while (mark > 0 && layout_.marks[mark].kind != AbcAccidentalMark::Kind::BarLine)
        --mark;
    return unit == 0 || (mark > 0 && layout_.units[unit - 1].range.offset <= layout_.marks[mark].offset);
}

void EditWriter::writeFree(const EditRun &run)
{
    TextRange range = layout_.units[run.first].range;
    range.length = layout_.units[run.last].range.end() - range.offset;
    auto text = freeText(run);
    const auto isBlankAt = [this](int offset) {
        return offset < 0 || offset >= text_.size() || text_[offset].isSpace();
    };
    if (const auto silence = text.isEmpty() ? silenceOf(run) : QString(); !silence.isEmpty()) {
        addChange(range, silence);
        return;
    }
    if (text.isEmpty()) {
        while (range.offset > layout_.bodyOffset && text_[range.offset - 1] == u' ')
            --range.offset, ++range.length;
    } else if (range.isEmpty()) {
        if (run.last == layout_.units.size() - 1 && layout_.tailNeedsLine)
            text.prepend(u'\n');
        else if (!isBlankAt(range.offset - 1) && !text.startsWith(u'\n') && !isJoined_)
            text.prepend(u' ');
    }
    if (!text.isEmpty() && layout_.units[run.last].isGap && !isBlankAt(range.end()))
        text.append(u' ');
    addChange(range, text);
}

// Measures in which something sounds now stand between bar lines of their own.
void EditWriter::writeMeasures(const EditRun &run)
{
    const auto &unit = layout_.units[run.first];
    const auto &rest = layout_.elements[unit.firstElement];
    const auto length = rest.measureOfRest();
    const auto &all = pieces_.of(run.first);
    QStringList measures;
    auto piece = all.begin();
    auto begin = unit.start;
    const auto addSilence = [&](Ticks until) {
        const auto count = length > 0 ? (until - begin) / length : 0;
        if (count > 0)
            measures += text_.mid(rest.range.offset, 1) + (count > 1 ? QString::number(count) : QString());
        begin += count * length;
    };
    while (length > 0 && piece != all.end()) {
        addSilence(piece->start);
        AbcUnit measure = unit;
        measure.end = begin + length;
        const auto next =
            std::find_if(piece, all.end(), [&](const NotePiece &other) { return other.start >= measure.end; });
        if (!measures.isEmpty())
            spelling_.nextMeasure();
        measures += musicText({piece, next}, begin, measure, begin);
        piece = next;
        begin = measure.end;
    }
    addSilence(unit.end);
    addChange(unit.range, measures.join(QStringLiteral(" | ")));
}
