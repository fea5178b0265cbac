// How the text looks: what is lit behind the characters, the marks of errors, and the margin.
#include "edit/BracketMatch.h"
#include "ui/document/EditorDocument.h"
#include "ui/text/AbcTextEdit.h"
#include "ui/text/EditorColours.h"

#include <QPainter>
#include <QPainterPath>
#include <QTextBlock>

#include <algorithm>

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

// The first problem that ends behind the offset.
auto firstProblemBehind(const QVector<AbcProblem> &problems, int offset)
{
    return std::lower_bound(problems.begin(), problems.end(), offset,
                            [](const AbcProblem &problem, int at) { return problem.range.end() < at; });
}

} // namespace

void AbcTextEdit::forEachVisibleLine(const QRect &area,
                                     const std::function<void(const QTextBlock &, TextRange)> &visit) const
{
    const auto offset = contentOffset();
    for (auto block = firstVisibleBlock(); block.isValid(); block = block.next()) {
        const auto place = blockBoundingGeometry(block).translated(offset);
        if (place.top() > area.bottom())
            return;
        if (!block.isVisible() || place.bottom() < area.top())
            continue;
        const auto *const layout = block.layout();
        for (int i = 0; i < layout->lineCount(); ++i) {
            const auto line = layout->lineAt(i);
            const auto y = place.top() + line.y();
            if (y > area.bottom() || y + line.height() < area.top())
                continue;
            const auto begin = line.xToCursor(area.left() - place.left(), QTextLine::CursorOnCharacter);
            const auto end =
                std::min(line.textStart() + line.textLength(), line.xToCursor(area.right() - place.left()) + 1);
            visit(block, {block.position() + begin, std::max(0, end - begin)});
        }
    }
}

void AbcTextEdit::forEachRect(const QTextBlock &block, TextRange range, const Paint &paint) const
{
    const auto corner = blockBoundingGeometry(block).translated(contentOffset()).topLeft();
    const auto *const layout = block.layout();
    for (int i = 0; i < layout->lineCount(); ++i) {
        const auto line = layout->lineAt(i);
        const auto begin = std::max(range.offset - block.position(), line.textStart());
        const auto end = std::min(range.end() - block.position(), line.textStart() + line.textLength());
        if (begin > end || (begin == end && range.length > 0))
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
    const auto &problems = document_.reading().problems;
    if (problems.isEmpty())
        return;
    painter.setRenderHint(QPainter::Antialiasing);
    forEachVisibleLine(area, [&](const QTextBlock &block, TextRange visible) {
        const auto end = document_.beforeTyping(visible.end());
        for (auto problem = firstProblemBehind(problems, document_.beforeTyping(visible.offset));
             problem != problems.end() && problem->range.offset <= end; ++problem) {
            auto range = document_.sinceReading(problem->range);
            if (range.isEmpty())
                continue;
            const auto last = std::min(range.end(), visible.end());
            range.offset = std::max(range.offset, visible.offset);
            range.length = last - range.offset;
            if (range.length > 0)
                forEachRect(block, range, [&](const QRectF &at) { drawWave(painter, at, colours_->problem); });
        }
    });
}

void AbcTextEdit::paintEvent(QPaintEvent *event)
{
    {
        QPainter painter(viewport());
        paintBehind(painter, event->rect());
    }
    QPlainTextEdit::paintEvent(event);
    QPainter painter(viewport());
    paintProblems(painter, event->rect());
}

void AbcTextEdit::paintLineNumbers(QPainter &painter, const QRect &area)
{
    painter.fillRect(area, palette().color(QPalette::Base));
    const auto width = lineNumberWidth();
    painter.setPen(colours_->currentLine.lighter());
    const auto caretBlock = textCursor().blockNumber();
    const auto &problems = document_.reading().problems;
    painter.setRenderHint(QPainter::Antialiasing);
    for (auto block = firstVisibleBlock(); block.isValid(); block = block.next()) {
        const auto place = blockBoundingGeometry(block).translated(contentOffset());
        if (place.top() > area.bottom())
            break;
        if (place.bottom() < area.top())
            continue;
        const bool isCurrent = block.blockNumber() == caretBlock;
        if (isCurrent)
            painter.fillRect(QRectF(0, place.top(), width, place.height()), colours_->currentLine);
        painter.setPen(isCurrent ? palette().color(QPalette::Text) : colours_->lineNumber);
        const QRectF line(0, place.top(), width - 14, fontMetrics().height());
        painter.drawText(line, Qt::AlignRight | Qt::AlignVCenter, QString::number(block.blockNumber() + 1));

        const auto problem = firstProblemBehind(problems, document_.beforeTyping(block.position()) + 1);
        const auto end = document_.beforeTyping(block.position() + block.length() - 1);
        if (problem == problems.end() || problem->range.offset > end)
            continue;
        painter.setPen(Qt::NoPen);
        painter.setBrush(colours_->problem);
        painter.drawEllipse(QPointF(7, line.center().y()), 3.5, 3.5);
    }
}

QString AbcTextEdit::problemAtLine(int y) const
{
    const auto block = cursorForPosition({0, y}).block();
    const auto begin = document_.beforeTyping(block.position());
    const auto end = document_.beforeTyping(block.position() + block.length() - 1);
    QStringList messages;
    for (const auto &problem : document_.reading().problems) {
        if (problem.range.offset >= begin && problem.range.offset <= end && messages.size() < 10)
            messages += problem.message;
    }
    return messages.join(u'\n');
}
