#include "edit/TextChange.h"

#include <algorithm>

QString applyChanges(const QString &text, const QVector<TextChange> &changes)
{
    QString result;
    result.reserve(text.size() + 16);
    int at = 0;
    for (const auto &change : changes) {
        result += QStringView(text).mid(at, change.range.offset - at);
        result += change.text;
        at = change.range.end();
    }
    result += QStringView(text).mid(at);
    return result;
}

TextChange difference(const QString &from, const QString &to)
{
    const auto shorter = std::min(from.size(), to.size());
    const auto same = int(std::mismatch(from.begin(), from.begin() + shorter, to.begin()).first - from.begin());
    int tail = 0;
    while (tail < shorter - same && from[from.size() - 1 - tail] == to[to.size() - 1 - tail])
        ++tail;
    return {{same, int(from.size()) - tail - same}, to.mid(same, int(to.size()) - tail - same)};
}
