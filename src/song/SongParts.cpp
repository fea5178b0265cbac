#include "song/SongParts.h"

#include "core/AbcParser.h"
#include "core/HeaderFields.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>

#include <algorithm>

namespace SongParts {

SongPart partOf(Track track, const QString &id)
{
    SongPart part;
    part.id = id;
    part.name = track.title();
    part.abc = track.toAbc();
    part.instrument = HeaderFields::instrumentName(track.headerFields(QStringLiteral("I")));
    if (!track.filePath().isEmpty())
        part.path = QDir::cleanPath(QFileInfo(track.filePath()).absoluteFilePath());
    return part;
}

Track trackOf(const SongPart &part, const std::stop_token &stop)
{
    try {
        return parseAbc(part.abc, stop);
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

} // namespace SongParts
