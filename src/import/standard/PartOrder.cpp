#include "import/standard/PartOrder.h"

#include <QCoreApplication>
#include <QRegularExpression>
#include <QVector>

namespace {

constexpr int mostParts = 10'000;

void repeatTail(QString &parts, qsizetype begin, int times)
{
    const auto tail = parts.mid(int(begin));
    if (parts.size() + tail.size() * qsizetype(times) > mostParts)
        throw QCoreApplication::translate("StandardAbc", "Too many parts.");
    for (int i = 1; i < times; ++i)
        parts += tail;
    if (times == 0)
        parts.truncate(int(begin));
}

} // namespace

QString expandPartOrder(QStringView text)
{
    static const QRegularExpression order(QStringLiteral("^[A-Z0-9().\\s]*$"));
    if (!order.match(text.toString()).hasMatch())
        return {};
    QString parts;
    QVector<qsizetype> open; // where the groups that are open begin
    qsizetype lastGroup = 0; // what a number repeats
    for (qsizetype i = 0; i < text.size(); ++i) {
        const auto c = text.at(i);
        if (c == u'(') {
            open.append(parts.size());
        } else if (c == u')') {
            lastGroup = open.isEmpty() ? 0 : open.takeLast();
        } else if (c.isDigit()) {
            int times = 0;
            for (; i < text.size() && text.at(i).isDigit(); ++i)
                times = std::min(mostParts, 10 * times + text.at(i).digitValue());
            --i;
            repeatTail(parts, lastGroup, times);
            lastGroup = parts.size();
        } else if (c.isLetter()) {
            lastGroup = parts.size();
            repeatTail(parts, parts.size(), 1);
            parts += c;
        }
    }
    return parts;
}
