#include "edit/AbcReading.h"

#include "core/HeaderFields.h"

#include <QCoreApplication>

#include <tuple>

namespace {

int endOfLine(int line, const QVector<int> &lines, const QString &text)
{
    return line + 1 < lines.size() ? lines[line + 1] - 1 : int(text.size());
}

} // namespace

QString refusalText(AbcRefusal why, const AbcToken &token)
{
    switch (why) {
    case AbcRefusal::HeaderText:
        return QCoreApplication::translate("AbcReading",
                                           "Unexpected text in the header; the music begins behind the K: line");
    case AbcRefusal::UnknownToken:
        return (token.text == u"\"" || token.text == u"!"
                    ? QCoreApplication::translate("AbcReading", "The sign %1 has no second one behind it")
                    : QCoreApplication::translate("AbcReading", "“%1” means nothing here"))
            .arg(token.text.toString());
    case AbcRefusal::HugeNumber:
        return QCoreApplication::translate("AbcReading", "The number is too large");
    case AbcRefusal::OpenChord:
        return QCoreApplication::translate("AbcReading", "The chord is not closed");
    case AbcRefusal::EmptyChord:
        return QCoreApplication::translate("AbcReading", "Empty chord");
    case AbcRefusal::GiantChord:
        return QCoreApplication::translate("AbcReading", "The chord has too many notes");
    case AbcRefusal::ForeignInChord:
        return QCoreApplication::translate("AbcReading", "“%1” does not belong in a chord").arg(token.text.toString());
    }
    return {};
}

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
    const auto lines = lineOffsets(text);
    const auto addProblem = [&](AbcRefusal why, const AbcToken &first, const AbcToken &last) {
        if (reading.problems.size() >= AbcReading::maxProblems)
            return;
        const auto begin = lines[first.line] + first.column;
        const auto end = why == AbcRefusal::HeaderText ? endOfLine(first.line, lines, text)
                                                       : lines[last.line] + last.column + int(last.text.size());
        reading.problems.append({{begin, end - begin}, first.line, first.column, refusalText(why, first)});
    };
    std::tie(reading.track, reading.layout) = parseWithLayout(text, addProblem);
    reading.unitLength = HeaderFields::parseUnitLength(reading.track.headerField(QStringLiteral("L")));
    reading.noteTexts.reserve(reading.track.events().size());
    for (const auto &event : reading.track.events()) {
        reading.noteTexts.append(
            event.isNote() ? TextRange{lines[int(event.textLine())] + int(event.textColumn()), int(event.textLength())}
                           : TextRange{});
    }
    return reading;
}

AbcReading unreadableAbc(const QString &message)
{
    auto reading = readAbc(QString());
    reading.problems = {{{0, 0}, 0, 0, message}};
    return reading;
}
