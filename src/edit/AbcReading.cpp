#include "edit/AbcReading.h"

#include "core/AbcTokenizer.h"
#include "core/HeaderFields.h"

#include <algorithm>
#include <tuple>

namespace {

const auto hugeNumber = QStringLiteral("The number is too large");

bool hasHugeNumber(const AbcToken &token)
{
    const auto isHuge = [&token](AbcPart part) {
        const auto digits = token.part(part);
        return digits.size() > 9 && digits.toString().toULongLong() > 0xFFFFFFFF;
    };
    if (token.text.size() <= 9)
        return false;
    if (token.type == AbcTokenType::Tuplet)
        return isHuge(AbcPart::TupletP) || isHuge(AbcPart::TupletQ);
    return isHuge(AbcPart::LengthNumerator) || isHuge(AbcPart::LengthDenominator);
}

bool endsOpenChord(AbcTokenType type)
{
    return type == AbcTokenType::BarLine || type == AbcTokenType::FieldLine || type == AbcTokenType::InlineField ||
           type == AbcTokenType::ChordStart || type == AbcTokenType::Comment;
}

// Finds the tokens that the parser refuses and blanks them out of a copy of the text, so that every other token keeps
// its place.
class ProblemFinder
{
public:
    explicit ProblemFinder(const QString &text) : text_(text), readable_(text), lines_(lineOffsets(text)), tokens_(text)
    {
    }

    void run();
    const QString &readableText() const { return readable_; }
    QVector<AbcProblem> takeProblems() { return std::move(problems_); }

private:
    void readHeader();
    void bodyToken();
    void readChord();
    void checkChord(const AbcToken &start, const QVector<AbcToken> &inside);
    TextRange rangeOf(const AbcToken &token) const
    {
        return {lines_[token.line] + token.column, int(token.text.size())};
    }
    void report(TextRange range, int line, const QString &message);
    void refuse(TextRange range, int line, const QString &message);

    const QString &text_;
    QString readable_;
    QVector<int> lines_;
    AbcTokenizer tokens_;
    AbcToken token_;
    bool tokenIsPending_ = false;
    QVector<AbcProblem> problems_;
};

void ProblemFinder::report(TextRange range, int line, const QString &message)
{
    if (problems_.size() < AbcReading::maxProblems)
        problems_.append({range, line, range.offset - lines_[line], message});
}

void ProblemFinder::refuse(TextRange range, int line, const QString &message)
{
    report(range, line, message);
    std::fill_n(readable_.begin() + range.offset, range.length, QLatin1Char(' '));
}

// One problem a line: what follows the first bad token of a header line is hardly worth a mark of its own.
void ProblemFinder::readHeader()
{
    int badLine = -1;
    while (tokens_.next(token_)) {
        switch (token_.type) {
        case AbcTokenType::FieldLine:
            if (token_.part(AbcPart::Name) == u"K")
                return;
            break;
        case AbcTokenType::Instruction:
        case AbcTokenType::WhiteSpace:
        case AbcTokenType::Comment:
            break;
        default: {
            if (token_.line == badLine)
                break;
            badLine = token_.line;
            const auto begin = rangeOf(token_).offset;
            const auto end = badLine + 1 < lines_.size() ? lines_[badLine + 1] - 1 : int(text_.size());
            refuse({begin, end - begin}, badLine,
                   QStringLiteral("Unexpected text in the header; the music begins behind the K: line"));
        }
        }
    }
}

void ProblemFinder::bodyToken()
{
    switch (token_.type) {
    case AbcTokenType::Character:
        refuse(rangeOf(token_), token_.line, QStringLiteral("“%1” means nothing here").arg(token_.text.toString()));
        break;
    case AbcTokenType::ChordStart:
        readChord();
        break;
    case AbcTokenType::Note:
    case AbcTokenType::Rest:
    case AbcTokenType::Tuplet:
        if (hasHugeNumber(token_))
            refuse(rangeOf(token_), token_.line, hugeNumber);
        break;
    default:
        break;
    }
}

// A chord that meets a bar line, a field, another chord or the end of the text was never closed: its bracket is wrong,
// and what follows is read as if it were not there. In a closed chord, whatever does not belong is refused by itself.
void ProblemFinder::readChord()
{
    const auto start = token_;
    QVector<AbcToken> inside;
    while ((tokenIsPending_ = tokens_.next(token_)) && !endsOpenChord(token_.type)) {
        if (token_.type == AbcTokenType::ChordEnd) {
            tokenIsPending_ = false;
            checkChord(start, inside);
            return;
        }
        inside.append(token_);
    }
    refuse(rangeOf(start), start.line, QStringLiteral("The chord is not closed"));
    const auto behind = token_;
    for (const auto &token : inside) {
        token_ = token;
        bodyToken();
    }
    token_ = behind;
}

// token_ is the chord's end.
void ProblemFinder::checkChord(const AbcToken &start, const QVector<AbcToken> &inside)
{
    const TextRange whole{rangeOf(start).offset, rangeOf(token_).end() - rangeOf(start).offset};
    if (hasHugeNumber(token_)) {
        refuse(whole, start.line, hugeNumber);
        return;
    }
    bool isEmpty = true;
    for (const auto &token : inside) {
        const bool belongs = token.type == AbcTokenType::Note || token.type == AbcTokenType::Rest;
        if (belongs && !hasHugeNumber(token))
            isEmpty = false;
        else if (belongs)
            refuse(rangeOf(token), token.line, hugeNumber);
        else if (token.type != AbcTokenType::WhiteSpace)
            refuse(rangeOf(token), token.line,
                   QStringLiteral("“%1” does not belong in a chord").arg(token.text.toString()));
    }
    if (isEmpty)
        refuse(whole, start.line, QStringLiteral("Empty chord"));
}

void ProblemFinder::run()
{
    readHeader();
    while (tokenIsPending_ || tokens_.next(token_)) {
        tokenIsPending_ = false;
        bodyToken();
    }
    std::stable_sort(problems_.begin(), problems_.end(),
                     [](const auto &a, const auto &b) { return a.range.offset < b.range.offset; });
}

} // namespace

QVector<int> lineOffsets(const QString &text)
{
    QVector<int> offsets{0};
    for (int i = 0; i < text.size(); ++i) {
        if (text[i] == u'\n')
            offsets.append(i + 1);
    }
    return offsets;
}

AbcReading readAbc(const QString &text)
{
    AbcReading reading;
    ProblemFinder finder(text);
    finder.run();
    reading.problems = finder.takeProblems();
    auto readable = finder.readableText();
    try {
        std::tie(reading.track, reading.layout) = parseWithLayout(readable);
    } catch (const QString &message) {
        // Only what no person writes comes here, such as a chord of ten thousand notes.
        reading.problems.append({{0, int(text.size())}, 0, 0, message});
        readable = QString(text.size(), QLatin1Char(' '));
        std::tie(reading.track, reading.layout) = parseWithLayout(readable);
    }

    reading.track.setAbc(text);
    reading.unitLength = HeaderFields::parseUnitLength(reading.track.headerField(QStringLiteral("L")));
    const auto lines = lineOffsets(readable);
    reading.noteTexts.reserve(reading.track.events().size());
    for (const auto &event : reading.track.events()) {
        reading.noteTexts.append(
            event.isNote() ? TextRange{lines[int(event.textLine())] + int(event.textColumn()), int(event.textLength())}
                           : TextRange{});
    }
    return reading;
}
