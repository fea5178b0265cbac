#include "ui/song/RenameTrack.h"

#include <QRegularExpression>

Track renamed(const Track &track, const QString &title)
{
    static const QRegularExpression titleLine(QStringLiteral("^T:[^\\r\\n]*"), QRegularExpression::MultilineOption);
    const auto letter = QStringLiteral("T");
    auto result = track;
    result.setHeaderField(letter, title);
    result.clearAbc();
    auto copy = track;
    auto text = track.hasAbc() ? copy.toAbc() : QString();
    const auto line = titleLine.match(text);
    const bool isOnlyOne = line.hasMatch() && !titleLine.match(text, line.capturedEnd()).hasMatch();
    if (isOnlyOne && track.headerFields(letter).size() == 1)
        result.setAbc(text.replace(line.capturedStart(), line.capturedLength(), QStringLiteral("T:") + title));
    return result;
}
