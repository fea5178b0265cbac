#include "song/SongTrack.h"

#include <QRegularExpression>

namespace {

const auto titleField = QStringLiteral("T");

QRegularExpressionMatch nextTitleLine(const QString &text, int from = 0)
{
    static const QRegularExpression titleLine(QStringLiteral("^T:[^\\r\\n]*"), QRegularExpression::MultilineOption);
    return titleLine.match(text, from);
}

QString textOf(const Track &track)
{
    auto copy = track;
    return track.hasAbc() ? copy.toAbc() : QString();
}

// Without such a line the text is to be made anew.
void setTitleLine(Track &track, const QRegularExpressionMatch &line, QString text, const QString &title)
{
    if (line.hasMatch())
        track.setAbc(text.replace(line.capturedStart(), line.capturedLength(), QStringLiteral("T:") + title));
    else
        track.clearAbc();
}

} // namespace

Track renamed(const Track &track, const QString &title)
{
    auto result = track;
    result.setHeaderField(titleField, title);
    const auto text = textOf(track);
    const auto line = nextTitleLine(text);
    const bool isOnlyOne = track.headerFields(titleField).size() == 1 && line.hasMatch() &&
                           !nextTitleLine(text, int(line.capturedEnd())).hasMatch();
    setTitleLine(result, isOnlyOne ? line : QRegularExpressionMatch(), text, title);
    return result;
}

Track copyWithTitle(const Track &track, const QString &title)
{
    auto fields = track.headerFields();
    auto &titles = fields[titleField];
    titles = QStringList(title) + titles.mid(1);
    auto result = track;
    result.setHeaderFields(fields);
    const auto text = textOf(track);
    setTitleLine(result, nextTitleLine(text), text, title);
    return result;
}

QString numberedTitle(const QString &title, const QStringList &others)
{
    static const QRegularExpression number(QStringLiteral(" \\([0-9]+\\)$"));
    const auto name = QString(title).remove(number);
    QString numbered;
    for (int next = 2; numbered.isEmpty() || others.contains(numbered); ++next)
        numbered = QStringLiteral("%1 (%2)").arg(name).arg(next);
    return numbered;
}
