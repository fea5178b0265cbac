// How the text looks: what is lit behind the characters, the marks of errors, and the margin.
#include "check/findings/FindingKinds.h"
#include "edit/BracketMatch.h"
#include "ui/document/EditorDocument.h"
#include "ui/text/AbcTextEdit.h"
#include "ui/text/EditorColours.h"
#include "ui/text/LongLine.h"

#include <QAbstractTextDocumentLayout>
#include <QPaintEvent>
#include <QPainter>
#include <QPainterPath>
#include <QTextBlock>

#include <algorithm>
#include <optional>

namespace {

constexpr qreal cornerRadius = 3;

void fillRounded(QPainter &painter, const QRectF &area, const QColor &colour)
{
    painter.setPen(Qt::NoPen);
    painter.setBrush(colour);
    painter.drawRoundedRect(area, cornerRadius, cornerRadius);
}

void drawWave(QPainter &painter, const QRectF &area, const QColor &colour)
{
    constexpr qreal step = 3;
    QPainterPath wave(QPointF(area.left(), area.bottom() - 1));
    bool isUp = true;
    for (auto x = area.left() + step; x < area.right() + step; x += step, isUp = !isUp)
        wave.lineTo(std::min(x, area.right()), area.bottom() - (isUp ? 4 : 1));
    painter.setPen(QPen(colour, 1.4));
    painter.setBrush(Qt::NoBrush);
    painter.drawPath(wave);
}

// The first that ends at the offset or behind it.
auto firstFindingBehind(const QVector<Finding> &findings, int offset)
{
    return std::lower_bound(findings.begin(), findings.end(), offset,
                            [](const Finding &finding, int at) { return finding.range.end() < at; });
}

void drawBulb(QPainter &painter, const QPointF &middle)
{
    painter.setBrush(QColor(0xFF, 0xC8, 0x3D));
    painter.setPen(QPen(QColor(0x9A, 0x6A, 0x00), 1));
    painter.drawEllipse(middle - QPointF(0, 1.5), 4.5, 4.5);
    painter.setPen(Qt::NoPen);
    painter.setBrush(QColor(0x8A, 0x8A, 0x8A));
    painter.drawRoundedRect(QRectF(middle.x() - 2, middle.y() + 3.5, 4, 3), 1, 1);
}

// The column, -1 where no caret is to be seen. While an input method composes, it counts from where that began.
int caretIn(const QTextBlock &block, const QAbstractTextDocumentLayout::PaintContext &context)
{
    const auto &layout = *block.layout();
    if (context.cursorPosition < -1)
        return layout.preeditAreaText().isEmpty() ? -1 : layout.preeditAreaPosition() - (context.cursorPosition + 2);
    return block.contains(context.cursorPosition) ? context.cursorPosition - block.position() : -1;
}

QVector<QTextLayout::FormatRange> selectionsIn(const QTextBlock &block,
                                               const QAbstractTextDocumentLayout::PaintContext &context)
{
    QVector<QTextLayout::FormatRange> ranges;
    for (const auto &selection : context.selections) {
        const auto begin = std::max(0, selection.cursor.selectionStart() - block.position());
        const auto end = std::min(block.length(), selection.cursor.selectionEnd() - block.position());
        if (begin < end)
            ranges.append({begin, end - begin, selection.format});
    }
    return ranges;
}

// What is composed by an input method, and what runs from right to left, only the whole line's layout can place.
bool canBePainted(const QTextBlock &block)
{
    const auto text = block.text();
    return block.layout()->preeditAreaText().isEmpty() && std::none_of(text.begin(), text.end(), [](QChar c) {
               return c.unicode() > 0x590 && (c.direction() == QChar::DirR || c.direction() == QChar::DirAL);
           });
}

} // namespace

void AbcTextEdit::forEachVisibleBlock(const QRect &area,
                                      const std::function<void(const QTextBlock &, const QRectF &)> &visit) const
{
    const auto offset = contentOffset();
    for (auto block = firstVisibleBlock(); block.isValid(); block = block.next()) {
        const auto place = blockBoundingGeometry(block).translated(offset);
        if (place.top() > area.bottom())
            return;
        if (block.isVisible() && place.bottom() >= area.top())
            visit(block, place);
    }
}

void AbcTextEdit::forEachVisibleLine(const QRect &area, const VisitLine &visit) const
{
    forEachVisibleBlock(area, [&](const QTextBlock &block, const QRectF &place) {
        forEachVisibleLineOf(block, place.topLeft(), area, visit);
    });
}

void AbcTextEdit::forEachVisibleLineOf(const QTextBlock &block, const QPointF &corner, const QRect &area,
                                       const VisitLine &visit)
{
    const auto *const layout = block.layout();
    for (int i = 0; i < layout->lineCount(); ++i) {
        const auto line = layout->lineAt(i);
        const auto y = corner.y() + line.y();
        if (y > area.bottom())
            return;
        if (y + line.height() < area.top())
            continue;
        const auto begin = line.xToCursor(area.left() - corner.x(), QTextLine::CursorOnCharacter);
        const auto end = std::min(line.textStart() + line.textLength(), line.xToCursor(area.right() - corner.x()) + 1);
        visit(block, {block.position() + begin, std::max(0, end - begin)});
    }
}

void AbcTextEdit::forEachRect(const QTextBlock &block, TextRange range, const Paint &paint) const
{
    const auto corner = blockBoundingGeometry(block).translated(contentOffset()).topLeft();
    const auto *const layout = block.layout();
    const auto first = std::max(0, range.offset - block.position());
    for (auto i = layout->lineForTextPosition(first).lineNumber(); i >= 0 && i < layout->lineCount(); ++i) {
        const auto line = layout->lineAt(i);
        const auto begin = std::max(first, line.textStart());
        const auto end = std::min(range.end() - block.position(), line.textStart() + line.textLength());
        if (begin > end)
            return;
        if (begin == end && range.length > 0)
            continue;
        const auto left = line.cursorToX(begin);
        const auto right = std::max(left + 4, line.cursorToX(end));
        paint({corner.x() + left, corner.y() + line.y(), right - left, line.height()});
    }
}

void AbcTextEdit::paintNotes(QPainter &painter, const QTextBlock &block, TextRange visible) const
{
    const auto &layout = document_.reading().layout;
    const auto end = document_.beforeTyping(visible.end());
    const auto holds = [](const QVector<int> &notes, int note) {
        return std::binary_search(notes.begin(), notes.end(), note);
    };
    for (auto i = std::max(0, layout.tokenAt(document_.beforeTyping(visible.offset)));
         i < layout.tokens.size() && layout.tokens[i].range.offset < end; ++i) {
        const auto note = layout.tokens[i].event;
        if (note < 0)
            continue;
        const bool sounds = holds(document_.playback().notes(), note);
        const bool isSelected = holds(document_.selectedNotes(), note);
        if (!sounds && !isSelected && note != document_.caret().note)
            continue;
        const auto range = document_.sinceReading(layout.tokens[i].range);
        if (range.isEmpty())
            continue;
        const auto &colour = sounds       ? colours_->soundingNote
                             : isSelected ? colours_->selectedNote
                                          : colours_->caretNote;
        forEachRect(block, range, [&](const QRectF &area) { fillRounded(painter, area, colour); });
    }
}

void AbcTextEdit::paintBehind(QPainter &painter, const QRect &area) const
{
    const auto caret = textCursor();
    const auto caretLine = blockBoundingGeometry(caret.block()).translated(contentOffset());
    painter.fillRect(QRectF(0, caretLine.top(), viewport()->width(), caretLine.height()), colours_->currentLine);

    painter.setRenderHint(QPainter::Antialiasing);
    const auto brackets = matchBracket(*document(), caret.position());
    const bool finds = found_.isValid() && !found_.pattern().isEmpty();
    forEachVisibleLine(area, [&](const QTextBlock &block, TextRange visible) {
        if (finds) {
            const auto column = visible.offset - block.position();
            auto matches = found_.globalMatch(block.text().mid(column, visible.length));
            while (matches.hasNext()) {
                const auto match = matches.next();
                const TextRange range{visible.offset + int(match.capturedStart()), int(match.capturedLength())};
                if (!range.isEmpty())
                    forEachRect(block, range, [&](const QRectF &at) { fillRounded(painter, at, colours_->found); });
            }
        }
        paintNotes(painter, block, visible);
        for (const auto bracket : {brackets.first, brackets.second}) {
            if (bracket >= visible.offset && bracket < visible.end())
                forEachRect(block, {bracket, 1},
                            [&](const QRectF &at) { fillRounded(painter, at, colours_->bracket); });
        }
    });
}

void AbcTextEdit::paintProblems(QPainter &painter, const QRect &area) const
{
    const auto &findings = document_.findings();
    if (findings.isEmpty())
        return;
    painter.setRenderHint(QPainter::Antialiasing);
    forEachVisibleLine(area, [&](const QTextBlock &block, TextRange visible) {
        for (auto finding = firstFindingBehind(findings, visible.offset);
             finding != findings.end() && finding->range.offset <= visible.end(); ++finding) {
            const auto begin = std::max(finding->range.offset, visible.offset);
            const auto end = std::min(finding->range.end(), visible.end());
            const auto &colour = colours_->of(FindingKinds::severity(finding->kind));
            if (begin < end)
                forEachRect(block, {begin, end - begin}, [&](const QRectF &at) { drawWave(painter, at, colour); });
        }
    });
}

void AbcTextEdit::paintEvent(QPaintEvent *event)
{
    QPainter painter(viewport());
    painter.setClipRect(event->rect());
    paintBehind(painter, event->rect());
    painter.setRenderHint(QPainter::Antialiasing, false);
    paintText(painter, event->rect());
    paintProblems(painter, event->rect());
}

// As QPlainTextEdit does, but of a long line no more than can be seen.
void AbcTextEdit::paintText(QPainter &painter, const QRect &area)
{
    const auto context = getPaintContext();
    forEachVisibleBlock(area, [&](const QTextBlock &block, const QRectF &place) {
        const auto selections = selectionsIn(block, context);
        const auto *const longLine = LongLine::of(block);
        if (longLine != nullptr && canBePainted(block))
            paintLongLine(painter, *longLine, block, area, selections);
        else
            block.layout()->draw(&painter, place.topLeft(), selections, area);
        if (const auto caret = caretIn(block, context); caret >= 0)
            block.layout()->drawCursor(&painter, place.topLeft(), caret, cursorWidth());
    });
}

void AbcTextEdit::paintLongLine(QPainter &painter, const LongLine &longLine, const QTextBlock &block, const QRect &area,
                                const QVector<QTextLayout::FormatRange> &selections) const
{
    const auto text = block.text();
    const auto corner = blockBoundingGeometry(block).translated(contentOffset()).topLeft();
    painter.setPen(palette().color(QPalette::Text));
    forEachVisibleLineOf(block, corner, area, [&](const QTextBlock &, TextRange seen) {
        seen.offset -= block.position();
        const auto line = block.layout()->lineForTextPosition(seen.offset);
        longLine.paint(painter, text, seen, {*colours_, font(), line, corner, selections});
    });
}

void AbcTextEdit::paintLineNumbers(QPainter &painter, const QRect &area)
{
    painter.fillRect(area, palette().color(QPalette::Base));
    painter.setRenderHint(QPainter::Antialiasing);
    forEachVisibleBlock(area, [&](const QTextBlock &block, const QRectF &place) {
        const bool isCurrent = block == textCursor().block();
        if (isCurrent)
            painter.fillRect(QRectF(0, place.top(), lineNumberWidth(), place.height()), colours_->currentLine);
        painter.setPen(isCurrent ? palette().color(QPalette::Text) : colours_->lineNumber);
        const QRectF line(0, place.top(), lineNumberWidth() - 14, fontMetrics().height());
        painter.drawText(line, Qt::AlignRight | Qt::AlignVCenter, QString::number(block.blockNumber() + 1));
        paintMark(painter, block, {7, line.center().y()});
    });
}

// The worst that was found in the line; where the caret is, that there are fixes.
void AbcTextEdit::paintMark(QPainter &painter, const QTextBlock &block, const QPointF &middle) const
{
    const auto end = block.position() + block.length() - 1;
    const auto &findings = document_.findings();
    std::optional<Severity> worst;
    bool hasFix = false;
    for (auto finding = firstFindingBehind(findings, block.position());
         finding != findings.end() && finding->range.offset <= end; ++finding) {
        if (finding->range.isEmpty())
            continue;
        worst = std::max(worst, std::optional(FindingKinds::severity(finding->kind)));
        hasFix |= !finding->fix.isEmpty();
    }
    if (!worst)
        return;
    if (hasFix && block == textCursor().block()) {
        drawBulb(painter, middle);
        return;
    }
    painter.setPen(Qt::NoPen);
    painter.setBrush(colours_->of(*worst));
    painter.drawEllipse(middle, 3.5, 3.5);
}
