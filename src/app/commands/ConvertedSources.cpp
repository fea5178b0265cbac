#include "app/commands/ConvertedSources.h"

#include <QCoreApplication>
#include <QFileInfo>

namespace {

constexpr int longestList = 20; // lines of a message

struct Texts
{
    Q_DECLARE_TR_FUNCTIONS(ImportQueue)
};

} // namespace

QString nameOf(const SongSource &source)
{
    return source.kind == SongSource::Kind::AbcText ? Texts::tr("The text") : QFileInfo(source.content).fileName();
}

QString questionAbout(const QVector<SongSource> &sources, const QVector<ConvertedAbc> &converted)
{
    QStringList lines;
    for (const auto &each : converted.mid(0, longestList))
        lines.append(Texts::tr("%1 uses notation that the game reads otherwise: %2.")
                         .arg(nameOf(sources.value(each.source)), each.differences.join(QStringLiteral(", "))));
    if (const auto more = converted.size() - lines.size(); more > 0)
        lines.append(Texts::tr("So do %1 more.").arg(more));
    return lines.join(u'\n') + QStringLiteral("\n\n") +
           Texts::tr("Converted for the game, it sounds as it is written. Opened as it is, it stays the same text "
                     "and file.");
}
