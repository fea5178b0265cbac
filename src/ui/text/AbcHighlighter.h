#pragma once

#include "ui/text/EditorColours.h"

#include <QSyntaxHighlighter>

class LongLine;
struct AbcToken;

// Colours ABC text by its tokens, line by line. Each line remembers whether the music has begun and what "!" and "$"
// mean from there on. Those of a long line stand in a LongLine.
class AbcHighlighter : public QSyntaxHighlighter
{
    Q_OBJECT

public:
    AbcHighlighter(QTextDocument *text, const EditorColours &colours);

    struct Look
    {
        QColor EditorColours::*colour;
        QFont::Weight weight = QFont::Normal;
        bool italic = false;
    };

    void setColours(const EditorColours &colours);

signals:
    void metLongLine();

protected:
    void highlightBlock(const QString &line) override;

private:
    void highlight(const AbcToken &token);
    void highlightNote(const AbcToken &token);
    void give(int begin, int length, const Look &look);

    const EditorColours *colours_;
    LongLine *longLine_ = nullptr; // of the line that is being read; the block owns it
};
