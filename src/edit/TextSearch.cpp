#include "edit/TextSearch.h"

#include <algorithm>

namespace {

QString unescaped(const QString &text)
{
    QString result;
    for (int i = 0; i < text.size(); ++i) {
        if (text[i] != u'\\' || i + 1 == text.size()) {
            result += text[i];
            continue;
        }
        const auto letter = text[++i].unicode();
        bool isHex = false;
        const auto code = letter == u'x' ? QStringView(text).mid(i + 1, 2).toString().toUShort(&isHex, 16) : ushort(0);
        if (isHex) {
            result += QChar(code);
            i += 2;
        } else if (letter == u'n' || letter == u'r') {
            result += u'\n';
        } else if (letter == u't') {
            result += u'\t';
        } else if (letter == u'\\') {
            result += u'\\';
        } else {
            result += u'\\';
            result += QChar(letter);
        }
    }
    return result;
}

// "\1" and "$1" are groups, "\0" and "$0" the whole match; "\n" and "\t" mean what they mean.
QString withGroups(const QString &replacement, const QRegularExpressionMatch &match)
{
    QString result;
    for (int i = 0; i < replacement.size(); ++i) {
        const auto mark = replacement[i];
        const auto behind = i + 1 < replacement.size() ? replacement[i + 1] : QChar();
        if ((mark == u'\\' || mark == u'$') && behind >= u'0' && behind <= u'9') {
            result += match.captured(behind.unicode() - u'0');
            ++i;
        } else if (mark == u'\\' && !behind.isNull()) {
            result += behind == u'$' ? QString(behind) : unescaped(replacement.mid(i, 2));
            ++i;
        } else {
            result += mark;
        }
    }
    return result;
}

} // namespace

QRegularExpression TextSearch::pattern(const SearchOptions &options)
{
    if (options.find.isEmpty())
        return {};
    auto expression = options.find;
    if (options.mode != SearchOptions::RegularExpression)
        expression =
            QRegularExpression::escape(options.mode == SearchOptions::Extended ? unescaped(expression) : expression);
    if (options.wholeWords)
        expression = QStringLiteral("(?<!\\w)(?:%1)(?!\\w)").arg(expression);
    // Bounds what an expression of the kind "(a*)*b" may try.
    expression.prepend(QStringLiteral("(*LIMIT_MATCH=100000)"));
    QRegularExpression result(expression, QRegularExpression::MultilineOption);
    if (!options.matchCase)
        result.setPatternOptions(result.patternOptions() | QRegularExpression::CaseInsensitiveOption);
    return result;
}

QVector<TextRange> TextSearch::findAll(const QRegularExpression &pattern, const QString &text, int limit)
{
    QVector<TextRange> found;
    if (pattern.pattern().isEmpty() || !pattern.isValid())
        return found;
    auto matches = pattern.globalMatch(text);
    while (matches.hasNext() && found.size() < limit) {
        const auto match = matches.next();
        if (match.capturedLength() > 0)
            found.append({int(match.capturedStart()), int(match.capturedLength())});
    }
    return found;
}

int TextSearch::next(const QVector<TextRange> &matches, TextRange selection, const SearchOptions &options)
{
    const auto count = int(matches.size());
    const bool isDown = options.direction == SearchOptions::Down;
    const auto from = isDown ? selection.end() : selection.offset;
    const auto behind = std::lower_bound(matches.begin(), matches.end(), from,
                                         [](const TextRange &match, int at) { return match.offset < at; });
    auto index = int(behind - matches.begin());
    if (!isDown) {
        do
            --index;
        while (index >= 0 && matches[index].end() > from);
    }
    if (index >= 0 && index < count)
        return index;
    if (!options.wrapAround || count == 0)
        return -1;
    return isDown ? 0 : count - 1;
}

QString TextSearch::replacement(const SearchOptions &options, const QRegularExpression &pattern, const QString &text,
                                TextRange match)
{
    switch (options.mode) {
    case SearchOptions::Plain:
        return options.replace;
    case SearchOptions::Extended:
        return unescaped(options.replace);
    case SearchOptions::RegularExpression:
        break;
    }
    return withGroups(options.replace, pattern.match(text, match.offset));
}
