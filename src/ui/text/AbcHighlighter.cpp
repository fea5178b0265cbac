#include "ui/text/AbcHighlighter.h"

#include "core/AbcTokenizer.h"
#include "ui/text/EditorColours.h"

#include <algorithm>
#include <array>

namespace {

// The layout of a line takes as long as it has pieces of different looks, and typing must not wait for it: the notes of
// a longer line are left in the colour of the text.
constexpr int longestFineLine = 3000;

// What a line hands to the next: flags of the block state.
enum LineState { InMusic = 1, DollarBreaks = 2, BangBreaks = 4, BangDoesNotDecorate = 8 };

// Instruction fields that bring a new tokenizer into the state, each on a line of its own.
QString instructionsFor(int state)
{
    QString text;
    if ((state & (DollarBreaks | BangBreaks)) != 0) {
        text += QStringLiteral("I:linebreak");
        text += (state & DollarBreaks) != 0 ? QStringLiteral(" $") : QString();
        text += (state & BangBreaks) != 0 ? QStringLiteral(" !") : QString();
        text += u'\n';
    }
    if ((state & BangDoesNotDecorate) != 0)
        text += QStringLiteral("I:decoration +\n");
    return text;
}

int stateBehind(const AbcToken &token, int state)
{
    if (token.type != AbcTokenType::FieldLine && token.type != AbcTokenType::InlineField)
        return state;
    const auto name = token.part(AbcPart::Name);
    if (name == u"K")
        return state | InMusic;
    if (name != u"I")
        return state;
    const auto words = token.part(AbcPart::Value).toString().simplified().split(u' ');
    const auto set = [&state](int flag, bool on) { state = on ? state | flag : state & ~flag; };
    if (words.first() == u"linebreak" && words.size() > 1) {
        set(DollarBreaks, words.contains(QStringLiteral("$")));
        set(BangBreaks, words.contains(QStringLiteral("!")));
    } else if (words.first() == u"decoration") {
        set(BangDoesNotDecorate, words.value(1) != u"!");
    }
    return state;
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
    auto state = std::max(0, previousBlockState());
    const auto instructions = instructionsFor(state);
    const int firstLine = int(instructions.count(u'\n'));
    const QString text = instructions.isEmpty() ? line : instructions + line;
    AbcTokenizer tokens(text);
    AbcToken token;
    while (tokens.next(token)) {
        if (token.line < firstLine)
            continue;
        const bool isMusic = (state & InMusic) != 0;
        state = stateBehind(token, state);
        if (isMusic || token.type == AbcTokenType::FieldLine || token.type == AbcTokenType::Comment ||
            token.type == AbcTokenType::Instruction)
            highlight(token, token.column);
    }
    setCurrentBlockState(state);
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
