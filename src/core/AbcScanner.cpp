#include "core/AbcScanner.h"

#include <limits>

// The kinds of token and the order in which they are tried are those of a table of regular expressions, each of which
// sees only so many characters of the line. The scanner cuts the same tokens by hand, thirty times as fast; the tests
// hold the table and compare.

namespace {

constexpr qsizetype wholeLine = std::numeric_limits<qsizetype>::max();

bool isDigit(char16_t c)
{
    return c >= u'0' && c <= u'9';
}

bool isLetter(char16_t c)
{
    return (c | 0x20) >= u'a' && (c | 0x20) <= u'z';
}

// A NUL, which programs leave behind that fill their blocks, ends nothing and means nothing.
bool isSpace(char16_t c)
{
    return c == u' ' || c == u'\0' || (c >= u'\t' && c <= u'\r');
}

} // namespace

// "1", "1,3", "1-3,5"
void AbcScanner::takeNumberList()
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

bool AbcScanner::takeUpTo(char16_t delimiter)
{
    const auto *const found = std::char_traits<char16_t>::find(p_, size_t(end_ - p_), delimiter);
    if (found == nullptr)
        return false;
    p_ = found;
    return true;
}

void AbcScanner::skipSpace()
{
    while (p_ < end_ && isSpace(*p_))
        ++p_;
}

void AbcScanner::takeLength()
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
bool AbcScanner::takeTie()
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

bool AbcScanner::note()
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

bool AbcScanner::rest()
{
    begin(20);
    ++p_;
    record(Part::Letter, at_);
    takeLength();
    return true;
}

// A chord's end takes a dot even when no tie follows it.
bool AbcScanner::chordEnd()
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

bool AbcScanner::tie()
{
    begin(3);
    return takeTie();
}

bool AbcScanner::fieldLine()
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

bool AbcScanner::inlineField()
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

bool AbcScanner::instruction()
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
bool AbcScanner::barLine()
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

bool AbcScanner::variantEnding()
{
    begin(10);
    take(u'[');
    takeNumberList();
    return true;
}

// "(p", "(p:q", "(p:q:r", where q and r may be left out.
bool AbcScanner::tuplet()
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

bool AbcScanner::annotation()
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

bool AbcScanner::chordSymbol()
{
    return decoration(u'"');
}

bool AbcScanner::decoration(char16_t delimiter)
{
    begin(50);
    take(delimiter);
    const auto *const value = p_;
    if (!takeUpTo(delimiter))
        return false;
    record(Part::Value, value);
    return take(delimiter);
}

bool AbcScanner::slur(char16_t bracket)
{
    begin(2);
    take(u'.');
    record(Part::Dot, at_);
    return take(bracket);
}

bool AbcScanner::graceStart()
{
    begin(2);
    take(u'{');
    const auto *const slash = p_;
    take(u'/');
    record(Part::Slash, slash);
    return true;
}

bool AbcScanner::comment()
{
    begin(wholeLine);
    take(u'%');
    const auto *const value = p_;
    p_ = end_;
    record(Part::Value, value);
    return true;
}

bool AbcScanner::run(char16_t c, int limit)
{
    begin(limit);
    return takeRun(c);
}

bool AbcScanner::one()
{
    begin(1);
    ++p_;
    return true;
}

bool AbcScanner::whiteSpace()
{
    begin(wholeLine);
    skipSpace();
    return true;
}

AbcTokenType AbcScanner::letter()
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

AbcTokenType AbcScanner::bracket()
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

AbcTokenType AbcScanner::dot()
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

AbcTokenType AbcScanner::bang(AbcSymbols symbols)
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

AbcTokenType AbcScanner::scan(AbcSymbols symbols)
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
