#pragma once

#include "edit/TextChange.h"

#include <QPlainTextEdit>
#include <QRegularExpression>
#include <QTextLayout>

#include <functional>

class AbcHighlighter;
class EditorDocument;
class LineNumbers;
class LongLine;
class TextCompleter;
struct EditorColours;

// A document's text: coloured, with line numbers, errors marked where they stand, and the notes that are selected, at
// the caret or sounding lit behind their characters. Shows and changes the document's selection and caret.
class AbcTextEdit : public QPlainTextEdit
{
    Q_OBJECT

public:
    // The document must outlive the view.
    explicit AbcTextEdit(EditorDocument &document, QWidget *parent = nullptr);

    // Lines count from 1. The caret goes to the line and the line into view.
    void goToLine(int line);
    void goTo(TextRange range);
    // Whatever it matches is marked; an empty pattern matches nothing.
    void setFound(const QRegularExpression &pattern);

    void zoom(int steps);
    void zoomNormal();
    void setWrapsLines(bool wraps);
    // That the text can name.
    void setInstruments(const QStringList &names);
    // For the context menu, in place of the text's own, which know nothing of notes. Both must outlive the view.
    void setUndoCommands(QAction *undo, QAction *redo);
    // Keeps the sounding notes in view while something plays.
    void setFollowsPlayback(bool follows) { followsPlayback_ = follows; }

    // For the line numbers.
    int lineNumberWidth() const;
    void paintLineNumbers(QPainter &painter, const QRect &area);
    QString problemAtLine(int y) const;
    void askForFixesAtLine(int y);

    // Of the problems at the caret, or else on its line; false when none has one.
    bool fixAtCaret();

protected:
    bool event(QEvent *event) override;
    void paintEvent(QPaintEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void wheelEvent(QWheelEvent *event) override;
    void changeEvent(QEvent *event) override;
    bool viewportEvent(QEvent *event) override;
    void contextMenuEvent(QContextMenuEvent *event) override;
    void insertFromMimeData(const QMimeData *source) override;

private:
    using Paint = std::function<void(const QRectF &)>;

    void connectDocument();
    void placeLineNumbers();
    void showSelectedNotes();
    void moveCaret(int offset);
    void publishCaret();
    void followPlayback();
    void readColours();
    void layOutFast();
    void forEachVisibleBlock(const QRect &area,
                             const std::function<void(const QTextBlock &, const QRectF &)> &visit) const;
    // Calls visit for each line on the screen with the characters of it that can be seen.
    using VisitLine = std::function<void(const QTextBlock &, TextRange)>;
    void forEachVisibleLine(const QRect &area, const VisitLine &visit) const;
    static void forEachVisibleLineOf(const QTextBlock &block, const QPointF &corner, const QRect &area,
                                     const VisitLine &visit);
    // The rectangles of a range, which may span lines; only what lies within the visible part.
    void forEachRect(const QTextBlock &block, TextRange range, const Paint &paint) const;
    void paintBehind(QPainter &painter, const QRect &area) const;
    void paintNotes(QPainter &painter, const QTextBlock &block, TextRange visible) const;
    void paintText(QPainter &painter, const QRect &area);
    void paintLongLine(QPainter &painter, const LongLine &longLine, const QTextBlock &block, const QRect &area,
                       const QVector<QTextLayout::FormatRange> &selections) const;
    void paintProblems(QPainter &painter, const QRect &area) const;
    void paintMark(QPainter &painter, const QTextBlock &block, const QPointF &middle) const;

    EditorDocument &document_;
    const EditorColours *colours_;
    AbcHighlighter *highlighter_;
    LineNumbers *lineNumbers_;
    TextCompleter *completer_;
    QRegularExpression found_;
    qreal normalSize_;
    int wheelRest_ = 0;
    QList<QAction *> undoCommands_;
    bool followsPlayback_ = true;
    bool isShowingSelection_ = false;
};
