// Any text: the scanner cuts exactly what the table of expressions cuts that defines the tokens.
#include "core/AbcTokenizer.h"

#include <QMap>
#include <QRegularExpression>
#include <QStringList>
#include <QVector>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <iterator>

namespace {

struct Row
{
    const char *pattern;
    int limit; // how many characters of the line the expression sees, -1 for all
};

constexpr Row table[] = {
    {R"( \G. )", 1},
    {R"( \G. )", 1},
    {R"( ^(?<field>[A-Za-z+]):[\s\0]*(?<value>.*)$ )", -1},
    {R"( \G\[(?<field>[A-Za-z+]):[\s\0]*(?<value>.*?)\] )", 20},
    {R"( ^%%(?<instruction>[-_a-zA-Z+])[\s\0]*(?<parameters>.*)$ )", -1},
    {R"( \G[\s\0]+ )", -1},
    {R"( \G(?<staccato>\.)?(?<accidental>\^*|_*|=)(?<note>[A-Ga-g])(?<octave>'+|,*)(?<length>(?<lennum>\d+)?(?<lenslash>/*)(?<lenden>\d+)?)(?<tie>(?<dot>\.)?-(?<tiedir>[,']?))? )",
     20},
    {R"( \G(?<rest>[zxZX])(?<length>(?<lennum>\d+)?(?<lenslash>/*)(?<lenden>\d+)?) )", 20},
    {R"x( \G"(?<placement>[_^<>]|@)(?<text>.*?)(?!\\)" )x", 50},
    {R"( \G\[(?<repeatnum>\d+([,-]\d+)*) )", 10},
    {R"( \G(?<dot>\.)?(?<bar>:*\[?\|\]?:*|\[\|?\]|:+)(?<repeatnum>\d+([,-]\d+)*)? )", 10},
    {R"x( \G"(?<harmony>.*?)" )x", 50},
    {R"( \G\((?<n1>\d+)(:(?<n2>\d+)?)?(:(?<n3>\d+)?)?)", 10},
    {R"( \G(?<dot>\.?)\( )", 2},
    {R"( \G(?<dot>\.?)\) )", 2},
    {R"( \G\[ )", 1},
    {R"( \G\](?<length>(?<lennum>\d+)?(?<lenslash>/*)(?<lenden>\d+)?)(?<tie>(?<dot>\.)?-?(?<tiedir>[,']?)) )", 10},
    {R"( \G{(?<slash>/?) )", 2},
    {R"( \G} )", 1},
    {R"( \G\<+|\>+ )", 10},
    {R"( \G!(?<decoration>[^!]*?)! )", 50},
    {R"( \G\+(?<decoration>[^+]*?)\+ )", 50},
    {R"( \G\\ )", 1},
    {R"( \G\$|! )", 1},
    {R"( \G& )", 1},
    {R"( \G` )", 1},
    {R"( \G%(?<comment>.*)$ )", -1},
    {R"( \G[H-Z-h-z~] )", 1},
    {R"( \G(?<dot>\.)?-(?<tiedir>[,']?) )", 3},
};

struct NamedPart
{
    AbcPart part;
    const char *groups;
};

constexpr NamedPart namedParts[] = {{AbcPart::Name, "field instruction"},
                                    {AbcPart::Value, "value parameters text harmony decoration comment"},
                                    {AbcPart::Letter, "note rest"},
                                    {AbcPart::Staccato, "staccato"},
                                    {AbcPart::Accidental, "accidental"},
                                    {AbcPart::Octave, "octave"},
                                    {AbcPart::Length, "length"},
                                    {AbcPart::LengthNumerator, "lennum"},
                                    {AbcPart::LengthSlashes, "lenslash"},
                                    {AbcPart::LengthDenominator, "lenden"},
                                    {AbcPart::Tie, "tie"},
                                    {AbcPart::TieDirection, "tiedir"},
                                    {AbcPart::Dot, "dot"},
                                    {AbcPart::Placement, "placement"},
                                    {AbcPart::RepeatNumbers, "repeatnum"},
                                    {AbcPart::Bar, "bar"},
                                    {AbcPart::TupletP, "n1"},
                                    {AbcPart::TupletQ, "n2"},
                                    {AbcPart::TupletR, "n3"},
                                    {AbcPart::Slash, "slash"}};

// Cuts tokens by trying the rows of the table in the order that the characters at the cursor ask for.
class TableTokenizer
{
public:
    explicit TableTokenizer(const QString &text) : lines_(text.split(u'\n')) {}

    bool next()
    {
        while (line_ < lines_.size() && column_ >= lines_[line_].size()) {
            ++line_;
            column_ = 0;
        }
        if (line_ >= lines_.size())
            return false;
        tokenLine = line_;
        tokenColumn = column_;
        for (const int row : candidates()) {
            if (tryRow(row))
                return true;
        }
        return false;
    }

    int type = 0;
    int tokenLine = 0;
    int tokenColumn = 0;
    QRegularExpressionMatch match;

private:
    QChar at(int offset) const
    {
        return column_ + offset < lines_[line_].size() ? lines_[line_][column_ + offset] : QChar();
    }

    // The rows that the character at the cursor asks for, some of them for what follows it alone.
    QVector<int> candidates() const
    {
        static const QMap<QChar, QVector<int>> always{
            {u'`', {25}},     {u'{', {17}},    {u'|', {10}}, {u'}', {18}}, {u'\\', {22}},   {u'^', {6}},
            {u'_', {6}},      {u'=', {6}},     {u':', {10}}, {u'<', {19}}, {u'>', {19}},    {u'-', {28}},
            {u'+', {21}},     {u'&', {24}},    {u')', {14}}, {u'~', {27}}, {u'"', {8, 11}}, {u']', {10, 16}},
            {u'[', {10, 15}}, {u'.', {10, 6}}, {u'(', {13}}, {u'%', {26}}};
        const auto c = at(0), lower = c.toLower(), c1 = at(1);
        QVector<int> rows;
        const auto addIf = [&rows](bool applies, int row) {
            if (applies)
                rows.append(row);
        };
        addIf(c.isLetter() && column_ == 0 && c1 == u':', 2);
        addIf(lower >= u'a' && lower <= u'g', 6);
        addIf(lower == u'x' || lower == u'z', 7);
        addIf(c.isLetter(), 27);
        addIf(c.isSpace() || c.isNull(), 5);
        addIf(c == u'[' && c1.isDigit(), 9);
        addIf(c == u'[' && c1.isLetter() && at(2) == u':', 3);
        addIf(c == u'.' && c1 == u'(', 13);
        addIf(c == u'.' && c1 == u')', 14);
        addIf(c == u'.' && c1 == u'-', 28);
        addIf(c == u'(' && c1.isDigit(), 12);
        addIf(c == u'%' && column_ == 0 && c1 == u'%', 4);
        addIf((c == u'$' && dollarBreaks_) || (c == u'!' && bangBreaks_), 23);
        addIf(c == u'!' && bangDecorates_, 20);
        return rows + always.value(c) + QVector<int>{0};
    }

    bool tryRow(int row)
    {
        static const auto expressions = compiled();
        match = expressions[row].match(lines_[line_].mid(column_, table[row].limit));
        if (!match.hasMatch())
            return false;
        type = row;
        column_ += match.capturedLength();
        if ((row == 2 || row == 3) && match.captured(QStringLiteral("field")) == u"I")
            instructionField(match.captured(QStringLiteral("value")).simplified().split(u' '));
        return true;
    }

    static QVector<QRegularExpression> compiled()
    {
        QVector<QRegularExpression> expressions;
        for (const auto &row : table) {
            expressions.append(
                QRegularExpression(QString::fromUtf8(row.pattern), QRegularExpression::ExtendedPatternSyntaxOption |
                                                                       QRegularExpression::DontCaptureOption));
        }
        return expressions;
    }

    void instructionField(const QStringList &words)
    {
        if (words.value(0) == u"linebreak" && words.size() > 1) {
            dollarBreaks_ = words.contains(QStringLiteral("$"));
            bangBreaks_ = words.contains(QStringLiteral("!"));
        } else if (words.value(0) == u"decoration") {
            bangDecorates_ = words.value(1) == u"!";
        }
    }

    QStringList lines_;
    int line_ = 0;
    int column_ = 0;
    bool dollarBreaks_ = false;
    bool bangBreaks_ = false;
    bool bangDecorates_ = true;
};

// A description of the first token that differs; empty when all are the same.
QString difference(const QString &text)
{
    TableTokenizer expected(text);
    AbcTokenizer scanner(text);
    AbcToken token;
    while (expected.next()) {
        const auto where = QStringLiteral("row %1 at %2:%3 \"%4\"")
                               .arg(expected.type)
                               .arg(expected.tokenLine)
                               .arg(expected.tokenColumn)
                               .arg(expected.match.captured());
        if (!scanner.next(token))
            return QStringLiteral("the scanner ends before ") + where;
        if (int(token.type) != expected.type || token.line != expected.tokenLine ||
            token.column != expected.tokenColumn || token.text != expected.match.captured())
            return QStringLiteral("the scanner has row %1 \"%2\" for ")
                       .arg(int(token.type))
                       .arg(token.text.toString()) +
                   where;
        const auto names = expected.match.regularExpression().namedCaptureGroups();
        for (const auto &[part, groups] : namedParts) {
            for (const auto &name : QString::fromLatin1(groups).split(u' ')) {
                if (!names.contains(name))
                    continue;
                const bool isThere = expected.match.capturedStart(name) >= 0;
                if (token.has(part) != isThere || token.part(part) != expected.match.captured(name))
                    return QStringLiteral("%1 is \"%2\" in ").arg(name, token.part(part).toString()) + where;
            }
        }
    }
    return scanner.next(token) ? QStringLiteral("the scanner goes on") : QString();
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    const auto decoded = QString::fromUtf8(reinterpret_cast<const char *>(data), int(size));
    QString text; // without surrogates, as the expressions refuse halves of pairs
    std::copy_if(decoded.begin(), decoded.end(), std::back_inserter(text), [](QChar c) { return !c.isSurrogate(); });
    const auto found = difference(text);
    if (found.isEmpty())
        return 0;
    std::fprintf(stderr, "%s in \"%s\"\n", qPrintable(found), qPrintable(text));
    std::abort();
}
