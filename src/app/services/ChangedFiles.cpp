#include "app/services/ChangedFiles.h"

#include "base/FileState.h"
#include "ui/tracks/TrackList.h"

#include <QVector>

namespace {

struct FiledTrack
{
    QString id;
    QString path;
    QString text;
};

struct Findings
{
    QHash<QString, QString> known;
    QStringList changed;
};

QVector<FiledTrack> filedTracks(const TrackList &list)
{
    QVector<FiledTrack> tracks;
    for (const auto &id : list.ids()) {
        if (list.isFiled(id))
            tracks.append({id, list.filePath(id), *list.savedText(id)});
    }
    return tracks;
}

Findings lookAt(const QVector<FiledTrack> &tracks, const QHash<QString, QString> &known)
{
    Findings findings;
    for (const auto &track : tracks) {
        const auto stamp = stampOf(track.path);
        findings.known.insert(track.path, stamp);
        if (known.value(track.path) != stamp && holdsAnotherText(track.path, track.text))
            findings.changed.append(track.id);
    }
    return findings;
}

} // namespace

void ChangedFiles::check(const TrackList &list)
{
    const auto tracks = filedTracks(list);
    if (task_.isRunning() || tracks.isEmpty())
        return;
    const auto look = [tracks, known = known_](const TaskControl &) { return lookAt(tracks, known); };
    const auto tell = [this](const Findings &findings) {
        known_ = findings.known;
        if (!findings.changed.isEmpty())
            emit found(findings.changed);
    };
    task_.start(look, tell, [](const QString &error) { qWarning("%s", qUtf8Printable(error)); });
}
