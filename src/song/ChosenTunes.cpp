#include "song/ChosenTunes.h"

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
