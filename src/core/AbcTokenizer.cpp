#include "core/AbcTokenizer.h"

#include <QStringList>

#include <algorithm>
#include <string>

// The kinds of token and the order in which they are tried are those of a table of regular expressions, each of which
// sees only so many characters of the line. The scanner cuts the same tokens by hand, thirty times as fast; the tests
// hold the table and compare.

namespace {

bool isDigit(char16_t c)
{
    return c >= u'0' && c <= u'9';
}

bool isLetter(char16_t c)
{
    return (c | 0x20) >= u'a' && (c | 0x20) <= u'z';
}

bool isSpace(char16_t c)
{
    return c == u' ' || (c >= u'\t' && c <= u'\r');
}

// Scans one token at a position of a line.
class Scanner
{
public:
    Scanner(const char16_t *lineBegin, const char16_t *at, const char16_t *lineEnd, AbcToken &token)
        : at_(at), lineEnd_(lineEnd), atLineBegin_(at == lineBegin), token_(token)
    {
    }

    AbcTokenType scan(AbcSymbols symbols);
    const char16_t *end() const { return p_; }

private:
    using Type = AbcTokenType;
    using Part = AbcPart;

    // Kinds of token: each begins anew at the position and says whether it is there.
    bool note();
    bool rest();
    bool chordEnd();
    bool tie();
    bool fieldLine();
    bool inlineField();
    bool instruction();
    bool barLine();
    bool variantEnding();
    bool tuplet();
    bool annotation();
    bool chordSymbol();
    bool decoration(char16_t delimiter);
    bool slur(char16_t bracket);
    bool graceStart();
    bool comment();
    bool run(char16_t c, int limit);
    bool one();
    bool whiteSpace();

    // First characters that leave a choice of kinds.
    Type letter();
    Type bracket();
    Type dot();
    Type bang(AbcSymbols symbols);

    // Elements: each takes what is there and moves on.
    void begin(qsizetype limit);
    bool take(char16_t c);
    bool takeRun(char16_t c);
    bool takeDigits();
    void takeNumberList();
    bool takeUpTo(char16_t delimiter);
    void skipSpace();
    void takeLength();
    bool takeTie();
    bool peek(char16_t c) const { return p_ < end_ && *p_ == c; }

    void record(AbcPart part, const char16_t *from) { token_.parts[size_t(part)] = {int(from - at_), int(p_ - at_)}; }

    char16_t charAt(int offset) const { return lineEnd_ - at_ > offset ? at_[offset] : u'\0'; }

    const char16_t *at_;
    const char16_t *lineEnd_;
    bool atLineBegin_;
    AbcToken &token_;
    const char16_t *p_ = nullptr;   // scanned up to here
    const char16_t *end_ = nullptr; // and no further than here
};

constexpr qsizetype wholeLine = -1;

void Scanner::begin(qsizetype limit)
{
    p_ = at_;
    end_ = limit == wholeLine || lineEnd_ - at_ < limit ? lineEnd_ : at_ + limit;
    token_.parts.fill({});
}

bool Scanner::take(char16_t c)
{
    if (!peek(c))
        return false;
    ++p_;
    return true;
}

bool Scanner::takeRun(char16_t c)
{
    const auto *const from = p_;
    while (take(c)) {
    }
    return p_ > from;
}

bool Scanner::takeDigits()
{
    const auto *const from = p_;
    while (p_ < end_ && isDigit(*p_))
        ++p_;
    return p_ > from;
}

// "1", "1,3", "1-3,5"
void Scanner::takeNumberList()
{
    const auto *const from = p_;
    if (!takeDigits())
        return;
    while ((peek(u',') || peek(u'-')) && p_ + 1 < end_ && isDigit(p_[1])) {
        ++p_;
        takeDigits();
    }
    record(Part::RepeatNumbers, from);
}

bool Scanner::takeUpTo(char16_t delimiter)
{
    const auto *const found = std::char_traits<char16_t>::find(p_, size_t(end_ - p_), delimiter);
    if (found == nullptr)
        return false;
    p_ = found;
    return true;
}

void Scanner::skipSpace()
{
    while (p_ < end_ && isSpace(*p_))
        ++p_;
}

void Scanner::takeLength()
{
    const auto *const length = p_;
    if (takeDigits())
        record(Part::LengthNumerator, length);
    const auto *const slashes = p_;
    takeRun(u'/');
    record(Part::LengthSlashes, slashes);
    const auto *const denominator = p_;
    if (takeDigits())
        record(Part::LengthDenominator, denominator);
    record(Part::Length, length);
}

// "-", ".-" and either with a direction.
bool Scanner::takeTie()
{
    const auto *const from = p_;
    if (take(u'.'))
        record(Part::Dot, from);
    if (!take(u'-')) {
        p_ = from;
        token_.parts[size_t(Part::Dot)] = {};
        return false;
    }
    const auto *const direction = p_;
    if (!take(u','))
        take(u'\'');
    record(Part::TieDirection, direction);
    return true;
}

bool Scanner::note()
{
    begin(20);
    if (take(u'.'))
        record(Part::Staccato, at_);

    const auto *const accidental = p_;
    if (!takeRun(u'^') && !takeRun(u'_'))
        take(u'=');
    record(Part::Accidental, accidental);

    const auto *const name = p_;
    if (p_ == end_ || (*p_ | 0x20) < u'a' || (*p_ | 0x20) > u'g')
        return false;
    ++p_;
    record(Part::Letter, name);

    const auto *const octave = p_;
    if (!takeRun(u'\''))
        takeRun(u',');
    record(Part::Octave, octave);

    takeLength();
    const auto *const tieBegin = p_;
    if (takeTie())
        record(Part::Tie, tieBegin);
    return true;
}

bool Scanner::rest()
{
    begin(20);
    ++p_;
    record(Part::Letter, at_);
    takeLength();
    return true;
}

// A chord's end takes a dot even when no tie follows it.
bool Scanner::chordEnd()
{
    begin(10);
    take(u']');
    takeLength();
    const auto *const tieBegin = p_;
    if (take(u'.'))
        record(Part::Dot, tieBegin);
    take(u'-');
    const auto *const direction = p_;
    if (!take(u','))
        take(u'\'');
    record(Part::TieDirection, direction);
    record(Part::Tie, tieBegin);
    return true;
}

bool Scanner::tie()
{
    begin(3);
    return takeTie();
}

bool Scanner::fieldLine()
{
    begin(wholeLine);
    ++p_;
    record(Part::Name, at_);
    take(u':');
    skipSpace();
    const auto *const value = p_;
    p_ = end_;
    record(Part::Value, value);
    return true;
}

bool Scanner::inlineField()
{
    begin(20);
    p_ += 2;
    record(Part::Name, at_ + 1);
    take(u':');
    skipSpace();
    const auto *const value = p_;
    if (!takeUpTo(u']'))
        return false;
    record(Part::Value, value);
    return take(u']');
}

bool Scanner::instruction()
{
    begin(wholeLine);
    p_ += 2;
    const auto *const name = p_;
    if (p_ == end_ || !(isLetter(*p_) || *p_ == u'-' || *p_ == u'_' || *p_ == u'+'))
        return false;
    ++p_;
    record(Part::Name, name);
    skipSpace();
    const auto *const value = p_;
    p_ = end_;
    record(Part::Value, value);
    return true;
}

// "|" with the colons and brackets around it, "[]", or colons alone.
bool Scanner::barLine()
{
    begin(10);
    if (take(u'.'))
        record(Part::Dot, at_);
    const auto *const bar = p_;
    const bool hasColons = takeRun(u':');
    const auto *const afterColons = p_;
    take(u'[');
    if (take(u'|')) {
        take(u']');
        takeRun(u':');
    } else if (hasColons) {
        p_ = afterColons;
    } else if (p_ == afterColons || !take(u']')) {
        return false;
    }
    record(Part::Bar, bar);
    takeNumberList();
    return true;
}

bool Scanner::variantEnding()
{
    begin(10);
    take(u'[');
    takeNumberList();
    return true;
}

// "(p", "(p:q", "(p:q:r", where q and r may be left out.
bool Scanner::tuplet()
{
    begin(10);
    take(u'(');
    const auto *from = p_;
    takeDigits();
    record(Part::TupletP, from);
    for (const auto part : {Part::TupletQ, Part::TupletR}) {
        if (!take(u':'))
            break;
        from = p_;
        if (takeDigits())
            record(part, from);
    }
    return true;
}

bool Scanner::annotation()
{
    begin(50);
    take(u'"');
    const auto *const placement = p_;
    if (!take(u'^') && !take(u'_') && !take(u'<') && !take(u'>') && !take(u'@'))
        return false;
    record(Part::Placement, placement);
    const auto *const value = p_;
    if (!takeUpTo(u'"'))
        return false;
    record(Part::Value, value);
    return take(u'"');
}

bool Scanner::chordSymbol()
{
    return decoration(u'"');
}

bool Scanner::decoration(char16_t delimiter)
{
    begin(50);
    take(delimiter);
    const auto *const value = p_;
    if (!takeUpTo(delimiter))
        return false;
    record(Part::Value, value);
    return take(delimiter);
}

bool Scanner::slur(char16_t bracket)
{
    begin(2);
    take(u'.');
    record(Part::Dot, at_);
    return take(bracket);
}

bool Scanner::graceStart()
{
    begin(2);
    take(u'{');
    const auto *const slash = p_;
    take(u'/');
    record(Part::Slash, slash);
    return true;
}

bool Scanner::comment()
{
    begin(wholeLine);
    take(u'%');
    const auto *const value = p_;
    p_ = end_;
    record(Part::Value, value);
    return true;
}

bool Scanner::run(char16_t c, int limit)
{
    begin(limit);
    return takeRun(c);
}

bool Scanner::one()
{
    begin(1);
    ++p_;
    return true;
}

bool Scanner::whiteSpace()
{
    begin(wholeLine);
    skipSpace();
    return true;
}

AbcTokenType Scanner::letter()
{
    if (atLineBegin_ && charAt(1) == u':' && fieldLine())
        return Type::FieldLine;
    const auto lower = charAt(0) | 0x20;
    if (lower <= u'g' && note())
        return Type::Note;
    if ((lower == u'x' || lower == u'z') && rest())
        return Type::Rest;
    one();
    return Type::LetterDecoration;
}

AbcTokenType Scanner::bracket()
{
    if (isDigit(charAt(1)) && variantEnding())
        return Type::VariantEnding;
    if (isLetter(charAt(1)) && charAt(2) == u':' && inlineField())
        return Type::InlineField;
    if (barLine())
        return Type::BarLine;
    one();
    return Type::ChordStart;
}

AbcTokenType Scanner::dot()
{
    if (charAt(1) == u'(' && slur(u'('))
        return Type::SlurStart;
    if (charAt(1) == u')' && slur(u')'))
        return Type::SlurEnd;
    if (charAt(1) == u'-' && tie())
        return Type::Tie;
    if (barLine())
        return Type::BarLine;
    if (note())
        return Type::Note;
    one();
    return Type::Character;
}

AbcTokenType Scanner::bang(AbcSymbols symbols)
{
    if (symbols.bangBreaksLines) {
        one();
        return Type::LineBreak;
    }
    if (symbols.bangDecorates && decoration(u'!'))
        return Type::BangDecoration;
    one();
    return Type::Character;
}

AbcTokenType Scanner::scan(AbcSymbols symbols)
{
    const auto c = charAt(0);
    if (isLetter(c))
        return letter();
    if (isSpace(c) && whiteSpace())
        return Type::WhiteSpace;

    const auto oneOf = [this](Type type) {
        one();
        return type;
    };
    switch (c) {
    case u'[':
        return bracket();
    case u'`':
        return oneOf(Type::BackQuote);
    case u'{':
        graceStart();
        return Type::GraceStart;
    case u'|':
    case u':':
        barLine();
        return Type::BarLine;
    case u'}':
        return oneOf(Type::GraceEnd);
    case u'\\':
        return oneOf(Type::LineContinuation);
    case u']':
        chordEnd();
        return Type::ChordEnd;
    case u'^':
    case u'_':
    case u'=':
        return note() ? Type::Note : oneOf(Type::Character);
    case u'<':
    case u'>':
        run(c, 10);
        return Type::BrokenRhythm;
    case u'-':
        tie();
        return Type::Tie;
    case u'+':
        return decoration(u'+') ? Type::PlusDecoration : oneOf(Type::Character);
    case u'&':
        return oneOf(Type::VoiceOverlay);
    case u')':
        slur(u')');
        return Type::SlurEnd;
    case u'.':
        return dot();
    case u'(':
        if (isDigit(charAt(1)) && tuplet())
            return Type::Tuplet;
        slur(u'(');
        return Type::SlurStart;
    case u'%':
        if (atLineBegin_ && charAt(1) == u'%' && instruction())
            return Type::Instruction;
        comment();
        return Type::Comment;
    case u'"':
        if (annotation())
            return Type::Annotation;
        return chordSymbol() ? Type::ChordSymbol : oneOf(Type::Character);
    case u'$':
        return oneOf(symbols.dollarBreaksLines ? Type::LineBreak : Type::Character);
    case u'!':
        return bang(symbols);
    case u'~':
        return oneOf(Type::LetterDecoration);
    default:
        return oneOf(Type::Character);
    }
}

} // namespace

AbcTokenizer::AbcTokenizer(QStringView text) : textEnd_(text.utf16() + text.size())
{
    beginLine(text.utf16());
}

void AbcTokenizer::beginLine(const char16_t *begin)
{
    lineBegin_ = at_ = begin;
    const auto *const lineFeed = std::char_traits<char16_t>::find(begin, size_t(textEnd_ - begin), u'\n');
    lineEnd_ = lineFeed != nullptr ? lineFeed : textEnd_;
}

bool AbcTokenizer::next(AbcToken &token)
{
    while (at_ == lineEnd_) {
        if (lineEnd_ == textEnd_)
            return false;
        beginLine(lineEnd_ + 1);
        ++line_;
    }
    Scanner scanner(lineBegin_, at_, lineEnd_, token);
    token.type = scanner.scan(symbols_);
    token.line = line_;
    token.column = int(at_ - lineBegin_);
    token.text = QStringView(at_, scanner.end() - at_);
    at_ = scanner.end();
    if (token.type == AbcTokenType::FieldLine || token.type == AbcTokenType::InlineField)
        applyInstructionField(token);
    return true;
}

void AbcTokenizer::applyInstructionField(const AbcToken &token)
{
    if (token.part(AbcPart::Name) != u"I")
        return;
    const auto words = token.part(AbcPart::Value).toString().simplified().split(u' ');
    if (words.first() == u"linebreak" && words.size() > 1) {
        symbols_.dollarBreaksLines = words.contains(QStringLiteral("$"));
        symbols_.bangBreaksLines = words.contains(QStringLiteral("!"));
    } else if (words.first() == u"decoration") {
        symbols_.bangDecorates = words.size() > 1 && words[1] == u"!";
    }
}
