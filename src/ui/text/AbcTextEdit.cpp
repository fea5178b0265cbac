#include "ui/text/AbcTextEdit.h"

#include "check/findings/FindingKinds.h"
#include "ui/document/EditorDocument.h"
#include "ui/text/AbcHighlighter.h"
#include "ui/text/EditorColours.h"
#include "ui/text/LineNumbers.h"
#include "ui/text/ProblemFixes.h"
#include "ui/text/TextCompleter.h"

#include <QContextMenuEvent>
#include <QFontDatabase>
#include <QHelpEvent>
#include <QMenu>
#include <QMimeData>
#include <QScrollBar>
#include <QTextBlock>
#include <QToolTip>

#include <algorithm>

namespace {

constexpr qreal smallestSize = 6; // points
constexpr qreal largestSize = 48;
constexpr int wheelStep = 120;
constexpr int mostSentences = 10; // of a tool tip

TextRange rangeOf(const QTextBlock &block)
{
    return {block.position(), block.length() - 1};
}

QString sentencesOf(const QVector<Finding> &findings)
{
    QStringList sentences;
    for (const auto &finding : findings.mid(0, mostSentences))
        sentences += sentenceOf(finding);
    return sentences.join(u'\n');
}

} // namespace

AbcTextEdit::AbcTextEdit(EditorDocument &document, QWidget *parent)
    : QPlainTextEdit(parent), document_(document), colours_(&EditorColours::of(palette())),
      highlighter_(new AbcHighlighter(document.text(), *colours_)), lineNumbers_(new LineNumbers(*this)),
      completer_(new TextCompleter(*this))
{
    highlighter_->setParent(this);
    setDocument(document_.text());
    auto fixed = QFontDatabase::systemFont(QFontDatabase::FixedFont);
    fixed.setFamily(QStringLiteral("monospace"));
    fixed.setStyleHint(QFont::Monospace);
    fixed.setFixedPitch(true);
    normalSize_ = fixed.pointSizeF() + 2;
    fixed.setPointSizeF(normalSize_);
    setFont(fixed);
    setLineWrapMode(NoWrap);
    setCursorWidth(2);
    setFrameShape(NoFrame);
    setAccessibleName(tr("ABC text"));
    connect(this, &QPlainTextEdit::cursorPositionChanged, this, &AbcTextEdit::publishCaret);
    connect(this, &QPlainTextEdit::selectionChanged, this, &AbcTextEdit::publishCaret);
    connect(highlighter_, &AbcHighlighter::metLongLine, this, &AbcTextEdit::layOutFast, Qt::QueuedConnection);
    connect(this, &QPlainTextEdit::blockCountChanged, this, &AbcTextEdit::placeLineNumbers);
    connect(this, &QPlainTextEdit::updateRequest, this, [this](const QRect &area, int dy) {
        if (dy != 0)
            lineNumbers_->scroll(0, dy);
        else
            lineNumbers_->update(0, area.y(), lineNumbers_->width(), area.height());
    });
    connectDocument();
    placeLineNumbers();
}

void AbcTextEdit::connectDocument()
{
    const auto repaint = [this] {
        viewport()->update();
        lineNumbers_->update();
    };
    connect(&document_, &EditorDocument::readingChanged, this, repaint);
    connect(&document_, &EditorDocument::findingsChanged, this, repaint);
    connect(&document_, &EditorDocument::selectionChanged, this, &AbcTextEdit::showSelectedNotes);
    connect(&document_, &EditorDocument::caretMoveRequested, this, &AbcTextEdit::moveCaret);
    connect(&document_, &EditorDocument::soundingNotesChanged, this, [this] {
        viewport()->update();
        followPlayback();
    });
}

void AbcTextEdit::publishCaret()
{
    const auto cursor = textCursor();
    if (isShowingSelection_)
        document_.moveCaret(cursor.position());
    else
        document_.setCaret(cursor.position(),
                           {cursor.selectionStart(), cursor.selectionEnd() - cursor.selectionStart()});
    viewport()->update();
    lineNumbers_->update();
}

// The selected notes become the text's selection when no other note lies between them.
void AbcTextEdit::showSelectedNotes()
{
    viewport()->update();
    const auto &notes = document_.selectedNotes();
    if (notes.isEmpty() || hasFocus() || isShowingSelection_)
        return;
    TextRange all = document_.textOf(notes.first());
    for (const auto note : notes) {
        const auto range = document_.textOf(note);
        const auto end = std::max(all.end(), range.end());
        all.offset = std::min(all.offset, range.offset);
        all.length = end - all.offset;
    }
    const auto &tokens = document_.reading().layout.tokens;
    const auto end = document_.beforeTyping(all.end());
    bool isWhole = true;
    for (auto i = document_.reading().layout.tokenAt(document_.beforeTyping(all.offset));
         isWhole && i >= 0 && i < tokens.size() && tokens[i].range.end() <= end; ++i)
        isWhole = std::binary_search(notes.begin(), notes.end(), tokens[i].event);

    isShowingSelection_ = true;
    auto cursor = textCursor();
    cursor.setPosition(all.offset);
    if (isWhole)
        cursor.setPosition(all.end(), QTextCursor::KeepAnchor);
    setTextCursor(cursor);
    isShowingSelection_ = false;
}

void AbcTextEdit::moveCaret(int offset)
{
    isShowingSelection_ = true;
    auto cursor = textCursor();
    cursor.setPosition(std::clamp(offset, 0, document()->characterCount() - 1));
    setTextCursor(cursor);
    isShowingSelection_ = false;
}

void AbcTextEdit::goTo(TextRange range)
{
    auto cursor = textCursor();
    const auto last = document()->characterCount() - 1;
    cursor.setPosition(std::clamp(range.offset, 0, last));
    cursor.setPosition(std::clamp(range.end(), 0, last), QTextCursor::KeepAnchor);
    setTextCursor(cursor);
    if (!viewport()->rect().contains(cursorRect()))
        centerCursor();
}

void AbcTextEdit::goToLine(int line)
{
    const auto block = document()->findBlockByNumber(std::clamp(line, 1, blockCount()) - 1);
    setTextCursor(QTextCursor(block));
    centerCursor();
    setFocus();
}

void AbcTextEdit::setFound(const QRegularExpression &pattern)
{
    found_ = pattern;
    viewport()->update();
}

void AbcTextEdit::followPlayback()
{
    const auto &notes = document_.playback().notes();
    if (!followsPlayback_ || notes.isEmpty())
        return;
    const auto range = document_.textOf(notes.last());
    QTextCursor cursor(document());
    cursor.setPosition(std::min(range.offset, document()->characterCount() - 1));
    const auto place = cursorRect(cursor);
    const auto view = viewport()->rect();
    if (place.top() < view.top() || place.bottom() > view.bottom())
        verticalScrollBar()->setValue(cursor.block().firstLineNumber() - verticalScrollBar()->pageStep() / 3);
    if (place.left() < view.left() || place.right() > view.right())
        horizontalScrollBar()->setValue(horizontalScrollBar()->value() + place.left() - view.width() / 4);
}

// Shaping takes most of the time of a long line's layout; in a font of one width it moves no more than combining
// accents.
void AbcTextEdit::layOutFast()
{
    auto fast = font();
    if (fast.styleStrategy() & QFont::PreferNoShaping)
        return;
    fast.setStyleStrategy(QFont::PreferNoShaping);
    setFont(fast);
}

void AbcTextEdit::zoom(int steps)
{
    auto changed = font();
    changed.setPointSizeF(std::clamp(changed.pointSizeF() + steps, smallestSize, largestSize));
    setFont(changed);
}

void AbcTextEdit::zoomNormal()
{
    auto changed = font();
    changed.setPointSizeF(normalSize_);
    setFont(changed);
}

void AbcTextEdit::setWrapsLines(bool wraps)
{
    setLineWrapMode(wraps ? WidgetWidth : NoWrap);
}

void AbcTextEdit::wheelEvent(QWheelEvent *event)
{
    if (!event->modifiers().testFlag(Qt::ControlModifier)) {
        QPlainTextEdit::wheelEvent(event);
        return;
    }
    wheelRest_ += event->angleDelta().y();
    zoom(wheelRest_ / wheelStep);
    wheelRest_ %= wheelStep;
}

// Undo and Redo are the window's, which knows what was typed and what was edited as notes.
bool AbcTextEdit::event(QEvent *event)
{
    if (event->type() == QEvent::ShortcutOverride) {
        const auto &key = *static_cast<QKeyEvent *>(event);
        if (key.matches(QKeySequence::Undo) || key.matches(QKeySequence::Redo)) {
            event->ignore();
            return true;
        }
    }
    return QPlainTextEdit::event(event);
}

// A line separator would be a line for the reader and none for the margin.
void AbcTextEdit::keyPressEvent(QKeyEvent *event)
{
    if (completer_->takes(*event))
        return;
    if (event->matches(QKeySequence::InsertLineSeparator)) {
        textCursor().insertBlock();
        ensureCursorVisible();
    } else {
        QPlainTextEdit::keyPressEvent(event);
        if (event->matches(QKeySequence::Undo) || event->matches(QKeySequence::Redo))
            document_.update();
    }
    completer_->follow(*event);
}

void AbcTextEdit::setInstruments(const QStringList &names)
{
    completer_->setInstruments(names);
}

void AbcTextEdit::insertFromMimeData(const QMimeData *source)
{
    auto text = source->text();
    text.replace(QChar(QChar::LineSeparator), u'\n');
    insertPlainText(text);
    ensureCursorVisible();
}

void AbcTextEdit::resizeEvent(QResizeEvent *event)
{
    QPlainTextEdit::resizeEvent(event);
    placeLineNumbers();
}

void AbcTextEdit::changeEvent(QEvent *event)
{
    QPlainTextEdit::changeEvent(event);
    if (event->type() == QEvent::FontChange)
        placeLineNumbers();
    else if (event->type() == QEvent::PaletteChange)
        readColours();
}

void AbcTextEdit::readColours()
{
    colours_ = &EditorColours::of(palette());
    highlighter_->setColours(*colours_);
}

bool AbcTextEdit::viewportEvent(QEvent *event)
{
    if (event->type() != QEvent::ToolTip)
        return QPlainTextEdit::viewportEvent(event);
    const auto *const help = static_cast<QHelpEvent *>(event);
    QToolTip::showText(help->globalPos(),
                       sentencesOf(document_.findingsAt({cursorForPosition(help->pos()).position(), 0})), viewport());
    return true;
}

void AbcTextEdit::setUndoCommands(QAction *undo, QAction *redo)
{
    undoCommands_ = {undo, redo};
}

// The menu begins with Qt's own Undo and Redo.
void AbcTextEdit::contextMenuEvent(QContextMenuEvent *event)
{
    auto *const menu = createStandardContextMenu(event->pos());
    const auto own = menu->actions().mid(0, undoCommands_.size());
    if (!own.isEmpty())
        menu->insertActions(own.first(), undoCommands_);
    qDeleteAll(own);
    menu->setAttribute(Qt::WA_DeleteOnClose);
    ProblemFixes::addTo(*menu, document_, document_.findingsAt({cursorForPosition(event->pos()).position(), 0}));
    menu->popup(event->globalPos());
}

bool AbcTextEdit::fixAtCaret()
{
    const auto caret = textCursor();
    auto findings = document_.findingsAt({caret.position(), 0});
    if (!ProblemFixes::areThere(findings))
        findings = document_.findingsAt(rangeOf(caret.block()));
    return ProblemFixes::fixOrAsk(document_, findings, viewport()->mapToGlobal(cursorRect().bottomLeft()));
}

QString AbcTextEdit::problemAtLine(int y) const
{
    return sentencesOf(document_.findingsAt(rangeOf(cursorForPosition({0, y}).block())));
}

void AbcTextEdit::askForFixesAtLine(int y)
{
    const auto findings = document_.findingsAt(rangeOf(cursorForPosition({0, y}).block()));
    if (!ProblemFixes::areThere(findings))
        return;
    auto *const menu = new QMenu(this);
    menu->setAttribute(Qt::WA_DeleteOnClose);
    ProblemFixes::addTo(*menu, document_, findings);
    menu->popup(lineNumbers_->mapToGlobal(QPoint(lineNumbers_->width(), y)));
}

int AbcTextEdit::lineNumberWidth() const
{
    const auto digits = QString::number(std::max(100, blockCount())).size();
    return 26 + int(digits) * fontMetrics().horizontalAdvance(u'9');
}

void AbcTextEdit::placeLineNumbers()
{
    const auto width = lineNumberWidth();
    setViewportMargins(width, 0, 0, 0);
    const auto area = contentsRect();
    lineNumbers_->setGeometry(area.left(), area.top(), width, area.height());
    lineNumbers_->setFont(font());
    lineNumbers_->update();
}
