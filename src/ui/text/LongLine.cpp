#include "ui/text/LongLine.h"

#include <QPainter>

#include <algorithm>

namespace {

QTextOption optionFor(TextRange piece, const QTextLine &line)
{
    QTextOption option;
    option.setWrapMode(QTextOption::NoWrap);
    // A tab begins its piece, and is as wide as it is in the whole line.
    option.setTabStopDistance(line.cursorToX(piece.offset + 1) - line.cursorToX(piece.offset));
    return option;
}

// Of ranges of the block, what lies in the piece, counted from its beginning.
QVector<QTextLayout::FormatRange> within(TextRange piece, QVector<QTextLayout::FormatRange> ranges)
{
    for (auto &range : ranges) {
        const auto end = std::min(range.start + range.length, piece.end());
        range.start = std::max(range.start, piece.offset);
        range.length = std::max(0, end - range.start);
        range.start -= piece.offset;
    }
    ranges.erase(std::remove_if(ranges.begin(), ranges.end(), [](const auto &range) { return range.length == 0; }),
                 ranges.end());
    return ranges;
}

} // namespace

const LongLine *LongLine::of(const QTextBlock &block)
{
    return static_cast<const LongLine *>(block.userData());
}

void LongLine::setColour(int begin, int length, QColor EditorColours::*colour)
{
    const Run run{begin, begin + length, colour};
    if (runs_.empty() || runs_.back().end <= begin) {
        add(run);
        return;
    }
    auto rest = runs_.back();
    rest.begin = run.end;
    runs_.back().end = begin;
    add(run);
    add(rest);
}

void LongLine::add(const Run &run)
{
    if (run.begin < run.end)
        runs_.push_back(run);
}

QVector<QTextLayout::FormatRange> LongLine::formats(TextRange piece, const EditorColours &colours) const
{
    QVector<QTextLayout::FormatRange> result;
    auto run = std::upper_bound(runs_.begin(), runs_.end(), piece.offset,
                                [](int offset, const Run &candidate) { return offset < candidate.end; });
    for (; run != runs_.end() && run->begin < piece.end(); ++run) {
        QTextLayout::FormatRange range;
        range.start = run->begin;
        range.length = run->end - run->begin;
        range.format.setForeground(colours.*run->colour);
        result.append(range);
    }
    return within(piece, result);
}

void LongLine::paint(QPainter &painter, const QString &text, TextRange seen, const Painting &how) const
{
    for (int begin = seen.offset, end = 0; begin < seen.end(); begin = end) {
        const auto tab = int(text.indexOf(u'\t', begin + 1));
        end = tab < 0 ? seen.end() : std::min(tab, seen.end());
        paintPiece(painter, text, {begin, end - begin}, how);
    }
}

void LongLine::paintPiece(QPainter &painter, const QString &text, TextRange piece, const Painting &how) const
{
    QTextLayout layout(text.mid(piece.offset, piece.length), how.font, painter.device());
    layout.setTextOption(optionFor(piece, how.line));
    layout.setFormats(formats(piece, how.colours));
    layout.beginLayout();
    auto line = layout.createLine();
    line.setNumColumns(piece.length);
    layout.endLayout();
    const QPointF place(how.line.cursorToX(piece.offset), how.line.y() + how.line.ascent() - line.ascent());
    layout.draw(&painter, how.corner + place, within(piece, how.selected));
}
