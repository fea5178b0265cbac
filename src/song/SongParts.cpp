#include "song/SongParts.h"

#include "base/SafeFile.h"
#include "core/AbcParser.h"
#include "core/HeaderFields.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>
#include <QSet>

#include <algorithm>

namespace SongParts {

SongPart partOf(Track track, const QString &id)
{
    SongPart part;
    part.id = id;
    part.name = track.title();
    part.abc = track.toAbc();
    part.barLines = track.barLines();
    part.instrument = HeaderFields::instrumentName(track.headerFields(QStringLiteral("I")));
    if (!track.filePath().isEmpty())
        part.path = QDir::cleanPath(QFileInfo(track.filePath()).absoluteFilePath());
    return part;
}

Track trackOf(const SongPart &part, const std::stop_token &stop)
{
    try {
        auto track = parseAbc(part.abc, stop);
        track.setBarLines(part.barLines);
        return track;
    } catch (const QString &message) {
        throw QCoreApplication::translate("SongReader", "Part \"%1\": %2").arg(part.name, message);
    }
}

Track silentTrackOf(const SongPart &part)
{
    Track track;
    track.setHeaderField(QStringLiteral("T"), part.name);
    track.setAbc(part.abc);
    return track;
}

QString freeId(const Song &song)
{
    qulonglong last = 0;
    for (const auto &part : song.parts) {
        if (part.id.startsWith(u'T'))
            last = std::max(last, part.id.mid(1).toULongLong());
    }
    return QStringLiteral("T%1").arg(last + 1);
}

QString freeImportId(const QVector<SongImported> &imports)
{
    QSet<QString> taken;
    for (const auto &imported : imports)
        taken.insert(imported.id);
    int number = 1;
    while (taken.contains(QStringLiteral("I%1").arg(number)))
        ++number;
    return QStringLiteral("I%1").arg(number);
}

QString fileTitle(const QString &songName, const QString &partName)
{
    const bool isNamed = songName.isEmpty() || (partName + u' ').startsWith(songName + u' ', Qt::CaseInsensitive);
    return isNamed ? partName : QStringLiteral("%1 - %2").arg(songName, partName);
}

QStringList fileNames(const Song &song, const QString &songName)
{
    QSet<QString> taken;
    QStringList names;
    for (const auto &part : song.parts) {
        const auto stem = SafeFile::cleanName(fileTitle(songName, part.name));
        auto name = stem;
        for (int number = 2; taken.contains(name.toLower()); ++number)
            name = QStringLiteral("%1 (%2)").arg(stem, QString::number(number));
        taken.insert(name.toLower());
        names.append(name + QStringLiteral(".abc"));
    }
    return names;
}

} // namespace SongParts
