#include "edit/BracketMatch.h"

#include "edit/AbcLineState.h"

#include <QTextBlock>
#include <QTextDocument>
#include <QVector>

namespace {

constexpr int reach = 4000; // characters before and behind the caret

bool isBracket(QChar c)
{
    return QStringView(u"()[]{}").contains(c);
}

// Pairs the brackets as they come and keeps the innermost pair that touches the caret.
class BracketPairs
{
public:
    explicit BracketPairs(int caret) : caret_(caret) {}

    void begin(AbcTokenType end, int offset) { open_.append({end, offset}); }
    void end(AbcTokenType type, int offset);
    std::pair<int, int> found() const { return found_; }

private:
    bool touchesCaret(int offset) const { return caret_ == offset || caret_ == offset + 1; }

    int caret_;
    QVector<std::pair<AbcTokenType, int>> open_; // by the token that ends them
    std::pair<int, int> found_{-1, -1};
};

void BracketPairs::end(AbcTokenType type, int offset)
{
    for (auto i = int(open_.size()) - 1; i >= 0; --i) {
        if (open_[i].first != type)
            continue;
        const auto begin = open_[i].second;
        if ((touchesCaret(begin) || touchesCaret(offset)) && found_.first < begin)
            found_ = {begin, offset};
        open_.resize(i);
        return;
    }
}

// firstChar, lastChar: offsets of the token's ends.
void addToken(BracketPairs &pairs, AbcTokenType type, int firstChar, int lastChar)
{
    switch (type) {
    case AbcTokenType::SlurStart:
        pairs.begin(AbcTokenType::SlurEnd, lastChar);
        break;
    case AbcTokenType::ChordStart:
        pairs.begin(AbcTokenType::ChordEnd, firstChar);
        break;
    case AbcTokenType::GraceStart:
        pairs.begin(AbcTokenType::GraceEnd, firstChar);
        break;
    case AbcTokenType::InlineField:
        pairs.begin(type, firstChar);
        pairs.end(type, lastChar);
        break;
    case AbcTokenType::SlurEnd:
        pairs.end(type, lastChar);
        break;
    case AbcTokenType::ChordEnd:
    case AbcTokenType::GraceEnd:
        pairs.end(type, firstChar);
        break;
    default:
        break;
    }
}

} // namespace

std::pair<int, int> matchBracket(const QTextDocument &text, int caret)
{
    BracketPairs pairs(caret);
    if (!isBracket(text.characterAt(caret)) && !(caret > 0 && isBracket(text.characterAt(caret - 1))))
        return pairs.found();

    // Only lines around the caret, so that the work does not grow with the text.
    auto block = text.findBlock(caret);
    while (block.previous().isValid() && caret - block.position() < reach)
        block = block.previous();
    const auto symbols = AbcLineState::of(block.previous().userState()).symbols;
    QString part;
    QVector<int> lines;
    for (; block.isValid() && block.position() < caret + reach; block = block.next()) {
        lines.append(block.position());
        part += block.text() + u'\n';
    }
    AbcTokenizer tokens(part, symbols);
    AbcToken token;
    while (tokens.next(token)) {
        const auto firstChar = lines[token.line] + token.column;
        addToken(pairs, token.type, firstChar, firstChar + int(token.text.size()) - 1);
    }
    return pairs.found();
}
