#include "app/songtools/SourceTracks.h"

#include "song/SongReader.h"
#include "song/SongSource.h"

#include <algorithm>

namespace {

ReadingOptions asItIs(const QJsonObject &settings)
{
    auto options = readingOptions(settings);
    options.cleanQuantise = false;
    options.midi.autoRealign = false;
    options.midi.velocityGate = 0;
    options.midi.endRestruck = true;
    options.midi.processVolume = true;
    return options;
}

// Takes the tracks away that it gives.
void assign(SourceTracks &result, QVector<std::shared_ptr<const SongTrack>> parts, QVector<Track> tracks)
{
    const bool isWhole = parts.size() == tracks.size();
    const auto take = [&](const SongTrack &part, int index) {
        result.tracks.insert(part.id, std::make_shared<const Track>(tracks.takeAt(index)));
    };
    QVector<std::shared_ptr<const SongTrack>> unnamed;
    for (const auto &part : qAsConst(parts)) {
        const auto found = std::find_if(tracks.begin(), tracks.end(),
                                        [&](const Track &track) { return track.title() == part->track->title(); });
        if (found != tracks.end())
            take(*part, int(found - tracks.begin()));
        else
            unnamed.append(part);
    }
    for (int i = 0; isWhole && i < unnamed.size(); ++i)
        take(*unnamed[i], 0);
}

QVector<std::shared_ptr<const SongTrack>> partsOf(const SongTracks &song, const SongImported &imported)
{
    QVector<std::shared_ptr<const SongTrack>> parts;
    for (const auto &track : song) {
        if (!imported.id.isEmpty() && track->import == imported.id)
            parts.append(track);
    }
    return parts;
}

} // namespace

SourceTracks sourceTracks(const SongTracks &song, const QVector<SongImported> &imports, const std::stop_token &stop)
{
    SourceTracks result;
    for (const auto &imported : imports) {
        const auto parts = partsOf(song, imported);
        if (parts.isEmpty())
            continue;
        auto read = readSource(sourceOf(imported), asItIs(imported.settings), stop);
        for (const auto &error : qAsConst(read.errors))
            result.problems.append(imported.path.isEmpty() ? error.text
                                                           : imported.path + QStringLiteral(": ") + error.text);
        read.tracks.erase(std::remove_if(read.tracks.begin(), read.tracks.end(),
                                         [](const Track &track) { return track.noteCount() == 0; }),
                          read.tracks.end());
        assign(result, parts, read.tracks);
    }
    return result;
}
