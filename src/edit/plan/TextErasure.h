#pragma once

#include "edit/TextChange.h"

#include <vector>

// Takes music out of a text and leaves all else: fields, comments, instructions, and the lines that these stand on.
// Private to MeasureChange.
class TextErasure
{
public:
    // The text must outlive this object.
    explicit TextErasure(const QString &text) : text_(text), isErased_(size_t(text.size()), false) {}

    void erase(TextRange range);
    // Of K, L, M and Q fields the last of each stays. So do no slurs that begin or end in there alone.
    void eraseMusic(int begin, int end);
    void insert(int offset, const QString &text);
    // A text that was erased takes the place of the one character at the offset, or stays where a line that is kept
    // stands between the two.
    void moveBack(TextRange range, int offset);

    QString text() const;

private:
    void eraseBlankLines(int begin, int end);
    void eraseLine(int begin, int end);

    const QString &text_;
    std::vector<bool> isErased_;
    int offset_ = -1; // of what is inserted
    QString inserted_;
};
