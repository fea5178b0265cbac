#pragma once

#include <QStringView>

#include <array>

// What a token of ABC text is. The names are those of the ABC standard 2.1.
enum class AbcTokenType : quint8 {
    Character, // one that begins nothing
    Reserved,  // never cut
    FieldLine,
    InlineField,
    Instruction, // "%%…"
    WhiteSpace,
    Note,
    Rest,
    Annotation,
    VariantEnding,
    BarLine,
    ChordSymbol,
    Tuplet,
    SlurStart,
    SlurEnd,
    ChordStart,
    ChordEnd,
    GraceStart,
    GraceEnd,
    BrokenRhythm,
    BangDecoration,
    PlusDecoration,
    LineContinuation,
    LineBreak,
    VoiceOverlay,
    BackQuote,
    Comment,
    LetterDecoration,
    Tie,
};

// The parts of a token. Kinds of token that never share a part share a slot.
enum class AbcPart : quint8 {
    // notes, and as far as they have them rests, chord ends and ties
    Staccato = 0,
    Accidental = 1,
    Letter = 2,
    Octave = 3,
    Length = 4,
    LengthNumerator = 5,
    LengthSlashes = 6,
    LengthDenominator = 7,
    Tie = 8,
    Dot = 9, // also of bar lines and slurs
    TieDirection = 10,
    // fields and instructions
    Name = 0,
    Value = 1, // also the text of comments, annotations, chord symbols and decorations
    // bar lines and variant endings
    Bar = 2,
    RepeatNumbers = 3,
    // tuplets "(p:q:r"
    TupletP = 0,
    TupletQ = 1,
    TupletR = 2,
    Placement = 0, // of an annotation
    Slash = 0,     // of grace notes
};

struct AbcToken
{
    AbcTokenType type = AbcTokenType::Character;
    int line = 0;   // counts from 0
    int column = 0; // counts from 0, in UTF-16 units
    QStringView text;

    // Null when the token lacks the part, which is not the same as an empty part.
    QStringView part(AbcPart part) const
    {
        const auto &span = parts[size_t(part)];
        return span.begin < 0 ? QStringView() : QStringView(text.begin() + span.begin, span.end - span.begin);
    }
    bool has(AbcPart part) const { return parts[size_t(part)].begin >= 0; }

    struct Span // within the token
    {
        int begin = -1;
        int end = -1;
    };
    std::array<Span, 11> parts;
};

// Which meanings of "!" and "$" are in force; I:linebreak and I:decoration fields change them.
struct AbcSymbols
{
    bool dollarBreaksLines = false;
    bool bangBreaksLines = false;
    bool bangDecorates = true;
};

// Cuts ABC text into tokens, line by line. Every character of the text belongs to exactly one token, line feeds apart;
// empty lines have none. The text must outlive the tokenizer and its tokens. Never fails.
class AbcTokenizer
{
public:
    // The text may be the rest of a longer one that left these symbols in force.
    explicit AbcTokenizer(QStringView text, AbcSymbols symbols = {});

    // False at the end of the text.
    bool next(AbcToken &token);

    // What is left of the last token's line is cut into no more tokens.
    void skipLine() { at_ = lineEnd_; }

    // Of the next token, counted from 0; one behind the last line at the end of the text.
    int line() const { return at_ == textEnd_ ? line_ + 1 : line_; }
    // In force behind the last token.
    AbcSymbols symbols() const { return symbols_; }

private:
    void beginLine(const char16_t *begin);
    void applyInstructionField(const AbcToken &token);

    const char16_t *textEnd_;
    const char16_t *lineBegin_ = nullptr;
    const char16_t *lineEnd_ = nullptr;
    const char16_t *at_ = nullptr;
    int line_ = 0;
    AbcSymbols symbols_;
};
