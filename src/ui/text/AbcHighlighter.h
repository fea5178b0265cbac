#pragma once

#include <QSyntaxHighlighter>

struct AbcToken;
struct EditorColours;

// Colours ABC text by its tokens, line by line. Each line remembers whether the music has begun and what "!" and "$"
// mean from there on.
class AbcHighlighter : public QSyntaxHighlighter
{
    Q_OBJECT

public:
    AbcHighlighter(QTextDocument *text, const EditorColours &colours);

    void setColours(const EditorColours &colours);

protected:
    void highlightBlock(const QString &line) override;

private:
    void highlight(const AbcToken &token, int column);
    void highlightNote(const AbcToken &token, int column);

    const EditorColours *colours_;
};
