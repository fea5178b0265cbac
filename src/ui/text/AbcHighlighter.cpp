#include "ui/text/AbcHighlighter.h"

#include "edit/AbcLineState.h"
#include "ui/text/EditorColours.h"

#include <algorithm>
#include <array>

namespace {

// The layout of a line takes as long as it has pieces of different looks, and typing must not wait for it: the notes of
// a longer line are left in the colour of the text.
constexpr int longestFineLine = 3000;

bool isInEveryHeader(AbcTokenType type)
{
    return type == AbcTokenType::FieldLine || type == AbcTokenType::Comment || type == AbcTokenType::Instruction;
}

QTextCharFormat coloured(const QColor &colour, QFont::Weight weight = QFont::Normal, bool italic = false)
{
    QTextCharFormat format;
    format.setForeground(colour);
    format.setFontWeight(weight);
    format.setFontItalic(italic);
    return format;
}

struct Look
{
    AbcTokenType type;
    QColor EditorColours::*colour;
    QFont::Weight weight = QFont::Normal;
    bool italic = false;
};

// Of the tokens that have one look all through.
constexpr std::array looks{
    Look{AbcTokenType::Rest, &EditorColours::rest},
    Look{AbcTokenType::InlineField, &EditorColours::field, QFont::Bold},
    Look{AbcTokenType::Instruction, &EditorColours::field, QFont::Normal, true},
    Look{AbcTokenType::Comment, &EditorColours::comment, QFont::Normal, true},
    Look{AbcTokenType::BarLine, &EditorColours::bar, QFont::Bold},
    Look{AbcTokenType::VariantEnding, &EditorColours::bar, QFont::Bold},
    Look{AbcTokenType::ChordStart, &EditorColours::chord, QFont::Bold},
    Look{AbcTokenType::ChordEnd, &EditorColours::chord, QFont::Bold},
    Look{AbcTokenType::Tuplet, &EditorColours::tuplet, QFont::Bold},
    Look{AbcTokenType::BrokenRhythm, &EditorColours::tuplet, QFont::Bold},
    Look{AbcTokenType::BangDecoration, &EditorColours::decoration},
    Look{AbcTokenType::PlusDecoration, &EditorColours::decoration},
    Look{AbcTokenType::LetterDecoration, &EditorColours::decoration},
    Look{AbcTokenType::GraceStart, &EditorColours::decoration},
    Look{AbcTokenType::GraceEnd, &EditorColours::decoration},
    Look{AbcTokenType::Annotation, &EditorColours::text},
    Look{AbcTokenType::ChordSymbol, &EditorColours::text},
    Look{AbcTokenType::SlurStart, &EditorColours::tie},
    Look{AbcTokenType::SlurEnd, &EditorColours::tie},
    Look{AbcTokenType::Tie, &EditorColours::tie},
    Look{AbcTokenType::Character, &EditorColours::problem, QFont::Bold},
    Look{AbcTokenType::LineContinuation, &EditorColours::lineNumber},
    Look{AbcTokenType::LineBreak, &EditorColours::lineNumber},
    Look{AbcTokenType::VoiceOverlay, &EditorColours::lineNumber},
    Look{AbcTokenType::BackQuote, &EditorColours::lineNumber},
};

const Look *lookOf(AbcTokenType type)
{
    const auto *const look =
        std::find_if(looks.begin(), looks.end(), [type](const Look &candidate) { return candidate.type == type; });
    return look != looks.end() ? look : nullptr;
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
    auto state = AbcLineState::of(previousBlockState());
    AbcTokenizer tokens(line, state.symbols);
    AbcToken token;
    while (tokens.next(token)) {
        if (state.inMusic || isInEveryHeader(token.type))
            highlight(token, token.column);
        state.inMusic |= token.type == AbcTokenType::FieldLine && token.part(AbcPart::Name) == u"K";
    }
    state.symbols = tokens.symbols();
    setCurrentBlockState(state.blockState());
}

void AbcHighlighter::highlight(const AbcToken &token, int column)
{
    switch (token.type) {
    case AbcTokenType::Note:
        if (currentBlock().length() <= longestFineLine)
            highlightNote(token, column);
        break;
    case AbcTokenType::FieldLine:
        setFormat(column, int(token.text.size()), coloured(colours_->note));
        setFormat(column, 2, coloured(colours_->field, QFont::Bold));
        break;
    default:
        if (const auto *const look = lookOf(token.type))
            setFormat(column, int(token.text.size()), coloured(colours_->*look->colour, look->weight, look->italic));
        break;
    }
}

void AbcHighlighter::highlightNote(const AbcToken &token, int column)
{
    const auto &c = *colours_;
    const auto part = [&](AbcPart name, const QTextCharFormat &look) {
        const auto &span = token.parts[size_t(name)];
        if (span.begin >= 0)
            setFormat(column + span.begin, span.end - span.begin, look);
    };
    setFormat(column, int(token.text.size()), coloured(c.decoration));
    part(AbcPart::Accidental, coloured(c.accidental, QFont::Bold));
    part(AbcPart::Letter, coloured(c.note, QFont::Bold));
    part(AbcPart::Octave, coloured(c.note));
    part(AbcPart::Length, coloured(c.length));
    part(AbcPart::Tie, coloured(c.tie));
}
