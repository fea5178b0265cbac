#pragma once

#include "edit/TextChange.h"
#include "ui/text/EditorColours.h"

#include <QTextBlock>
#include <QTextLayout>

#include <vector>

class QPainter;

// The colours of a line that is too long for its QTextLayout to hold them: that is made anew with every key, which
// takes as long as it has pieces of different looks. The block owns it, and the view paints with it what can be seen.
// [ui]
class LongLine : public QTextBlockUserData
{
public:
    static constexpr int leastLength = 3000;

    // Null where the block's layout has the colours.
    static const LongLine *of(const QTextBlock &block);

    // From left to right; within what was set last the rest of that keeps its colour.
    void setColour(int begin, int length, QColor EditorColours::*colour);

    struct Painting
    {
        const EditorColours &colours;
        QFont font;
        QTextLine line;                             // of the block's layout
        QPointF corner;                             // of the block
        QVector<QTextLayout::FormatRange> selected; // columns of the block
    };

    // The columns of `seen`, which must lie in the line.
    void paint(QPainter &painter, const QString &text, TextRange seen, const Painting &how) const;

private:
    struct Run
    {
        int begin;
        int end;
        QColor EditorColours::*colour;
    };

    void add(const Run &run);
    void paintPiece(QPainter &painter, const QString &text, TextRange piece, const Painting &how) const;
    QVector<QTextLayout::FormatRange> formats(TextRange piece, const EditorColours &colours) const;

    std::vector<Run> runs_;
};
