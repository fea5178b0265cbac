#include "app/commands/ConvertedSources.h"

#include <QCoreApplication>
#include <QFileInfo>

namespace {

constexpr int longestList = 20; // lines of a message

QString translated(const char *text)
{
    return QCoreApplication::translate("ImportQueue", text);
}

} // namespace

QString nameOf(const SongSource &source)
{
    return source.kind == SongSource::Kind::AbcText ? translated("The text") : QFileInfo(source.content).fileName();
}

QString questionAbout(const QVector<SongSource> &sources, const QVector<ConvertedAbc> &converted)
{
    QStringList lines;
    for (const auto &each : converted.mid(0, longestList))
        lines.append(translated("%1 uses notation that the game reads otherwise: %2.")
                         .arg(nameOf(sources.value(each.source)), each.differences.join(QStringLiteral(", "))));
    if (const auto more = converted.size() - lines.size(); more > 0)
        lines.append(translated("So do %1 more.").arg(more));
    return lines.join(u'\n') + QStringLiteral("\n\n") +
           translated("Converted for the game, it sounds as it is written. Opened as it is, it stays the same text "
                      "and file.");
}

QVector<int> tunesWithTracks(const ReadSong &song, int source)
{
    QVector<int> tunes;
    for (int i = 0; i < song.tracks.size(); ++i) {
        if (song.sources[i] == source && !tunes.contains(song.tunes[i]))
            tunes.append(song.tunes[i]);
    }
    return tunes;
}

void keepTunes(ReadSong &song, int source, const QSet<int> &tunes)
{
    auto kept = song;
    kept.tracks.clear();
    kept.parts.clear();
    kept.sources.clear();
    kept.tunes.clear();
    kept.songParts.clear();
    for (int i = 0; i < song.tracks.size(); ++i) {
        if (song.sources[i] == source && !tunes.contains(song.tunes[i]))
            continue;
        if (song.songParts.contains(i))
            kept.songParts.insert(int(kept.tracks.size()), song.songParts[i]);
        kept.tracks.append(song.tracks[i]);
        kept.parts.append(song.parts[i]);
        kept.sources.append(song.sources[i]);
        kept.tunes.append(song.tunes[i]);
    }
    song = kept;
}
