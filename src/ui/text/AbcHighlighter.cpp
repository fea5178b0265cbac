#include "ui/text/AbcHighlighter.h"

#include "edit/AbcLineState.h"
#include "ui/text/EditorColours.h"
#include "ui/text/LongLine.h"

#include <algorithm>
#include <array>

using Look = AbcHighlighter::Look;

namespace {

bool isInEveryHeader(AbcTokenType type)
{
    return type == AbcTokenType::FieldLine || type == AbcTokenType::Comment || type == AbcTokenType::Instruction;
}

struct TokenLook
{
    AbcTokenType type;
    Look look;
};

// Of the tokens that have one look all through.
constexpr std::array looks{
    TokenLook{AbcTokenType::Rest, {&EditorColours::rest}},
    TokenLook{AbcTokenType::InlineField, {&EditorColours::field, QFont::Bold}},
    TokenLook{AbcTokenType::Instruction, {&EditorColours::field, QFont::Normal, true}},
    TokenLook{AbcTokenType::Comment, {&EditorColours::comment, QFont::Normal, true}},
    TokenLook{AbcTokenType::BarLine, {&EditorColours::bar, QFont::Bold}},
    TokenLook{AbcTokenType::VariantEnding, {&EditorColours::bar, QFont::Bold}},
    TokenLook{AbcTokenType::ChordStart, {&EditorColours::chord, QFont::Bold}},
    TokenLook{AbcTokenType::ChordEnd, {&EditorColours::chord, QFont::Bold}},
    TokenLook{AbcTokenType::Tuplet, {&EditorColours::tuplet, QFont::Bold}},
    TokenLook{AbcTokenType::BrokenRhythm, {&EditorColours::tuplet, QFont::Bold}},
    TokenLook{AbcTokenType::BangDecoration, {&EditorColours::decoration}},
    TokenLook{AbcTokenType::PlusDecoration, {&EditorColours::decoration}},
    TokenLook{AbcTokenType::LetterDecoration, {&EditorColours::decoration}},
    TokenLook{AbcTokenType::GraceStart, {&EditorColours::decoration}},
    TokenLook{AbcTokenType::GraceEnd, {&EditorColours::decoration}},
    TokenLook{AbcTokenType::Annotation, {&EditorColours::text}},
    TokenLook{AbcTokenType::ChordSymbol, {&EditorColours::text}},
    TokenLook{AbcTokenType::SlurStart, {&EditorColours::tie}},
    TokenLook{AbcTokenType::SlurEnd, {&EditorColours::tie}},
    TokenLook{AbcTokenType::Tie, {&EditorColours::tie}},
    TokenLook{AbcTokenType::Character, {&EditorColours::problem, QFont::Bold}},
    TokenLook{AbcTokenType::LineContinuation, {&EditorColours::lineNumber}},
    TokenLook{AbcTokenType::LineBreak, {&EditorColours::lineNumber}},
    TokenLook{AbcTokenType::VoiceOverlay, {&EditorColours::lineNumber}},
    TokenLook{AbcTokenType::BackQuote, {&EditorColours::lineNumber}},
};

const Look *lookOf(AbcTokenType type)
{
    const auto *const found =
        std::find_if(looks.begin(), looks.end(), [type](const TokenLook &candidate) { return candidate.type == type; });
    return found != looks.end() ? &found->look : nullptr;
}

} // namespace

AbcHighlighter::AbcHighlighter(QTextDocument *text, const EditorColours &colours)
    : QSyntaxHighlighter(text), colours_(&colours)
{
}

void AbcHighlighter::setColours(const EditorColours &colours)
{
    if (colours_ == &colours)
        return;
    colours_ = &colours;
    rehighlight();
}

void AbcHighlighter::highlightBlock(const QString &line)
{
    longLine_ = line.size() < LongLine::leastLength ? nullptr : new LongLine;
    setCurrentBlockUserData(longLine_); // takes it
    if (longLine_ != nullptr)
        emit metLongLine();
    auto state = AbcLineState::of(previousBlockState());
    AbcTokenizer tokens(line, state.symbols);
    AbcToken token;
    while (tokens.next(token)) {
        if (state.inMusic || isInEveryHeader(token.type))
            highlight(token);
        state.inMusic |= token.type == AbcTokenType::FieldLine && token.part(AbcPart::Name) == u"K";
    }
    state.symbols = tokens.symbols();
    setCurrentBlockState(state.blockState());
}

void AbcHighlighter::give(int begin, int length, const Look &look)
{
    if (longLine_ != nullptr) {
        longLine_->setColour(begin, length, look.colour);
        return;
    }
    QTextCharFormat format;
    format.setForeground(colours_->*look.colour);
    format.setFontWeight(look.weight);
    format.setFontItalic(look.italic);
    setFormat(begin, length, format);
}

void AbcHighlighter::highlight(const AbcToken &token)
{
    switch (token.type) {
    case AbcTokenType::Note:
        highlightNote(token);
        break;
    case AbcTokenType::FieldLine:
        give(token.column, int(token.text.size()), {&EditorColours::note});
        give(token.column, 2, {&EditorColours::field, QFont::Bold});
        break;
    default:
        if (const auto *const look = lookOf(token.type))
            give(token.column, int(token.text.size()), *look);
        break;
    }
}

void AbcHighlighter::highlightNote(const AbcToken &token)
{
    const auto part = [&](AbcPart name, const Look &look) {
        const auto &span = token.parts[size_t(name)];
        if (span.begin >= 0)
            give(token.column + span.begin, span.end - span.begin, look);
    };
    give(token.column, int(token.text.size()), {&EditorColours::decoration});
    part(AbcPart::Accidental, {&EditorColours::accidental, QFont::Bold});
    part(AbcPart::Letter, {&EditorColours::note, QFont::Bold});
    part(AbcPart::Octave, {&EditorColours::note});
    part(AbcPart::Length, {&EditorColours::length});
    part(AbcPart::Tie, {&EditorColours::tie});
}
