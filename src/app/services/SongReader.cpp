#include "app/services/SongReader.h"

#include "base/Interrupted.h"
#include "base/TextDecoding.h"
#include "core/AbcParser.h"
#include "settings/Settings.h"

#include <QFile>
#include <QFileInfo>
#include <QMimeData>
#include <QRegularExpression>
#include <QUrl>

namespace {

constexpr qint64 longestFile = 64 << 20; // bytes

QByteArray readFile(const QString &path)
{
    QFile file(path);
    if (!QFileInfo(path).isFile() || !file.open(QIODevice::ReadOnly))
        throw QStringLiteral("Could not open file.");
    if (file.size() > longestFile)
        throw QStringLiteral("The file is too large.");
    return file.readAll();
}

QVector<Track> tracksWithNotes(const QVector<Track> &tracks)
{
    QVector<Track> kept;
    for (const auto &track : tracks) {
        if (track.noteCount() > 0)
            kept.append(track);
    }
    return kept;
}

QVector<Track> readTracks(const SongSource &source, const ReadingOptions &options, const std::stop_token &stop)
{
    switch (source.kind) {
    case SongSource::Kind::AbcFile: {
        auto track = parseAbc(decodeText(readFile(source.content)), stop);
        track.setFilePath(source.content);
        return {track};
    }
    case SongSource::Kind::MidiFile:
        return tracksWithNotes(importMidi(readFile(source.content), options.midi, stop).tracks);
    case SongSource::Kind::AbcText:
        return {parseAbc(source.content, stop)};
    case SongSource::Kind::MmlText:
        return tracksWithNotes(importMml(source.content, options.mml, stop).tracks);
    }
    return {};
}

QString errorTitle(SongSource::Kind kind)
{
    switch (kind) {
    case SongSource::Kind::MidiFile:
        return QStringLiteral("Error while reading MIDI file");
    case SongSource::Kind::AbcFile:
        return QStringLiteral("Error while reading ABC file");
    case SongSource::Kind::AbcText:
    case SongSource::Kind::MmlText:
        break;
    }
    return QStringLiteral("Import from clipboard");
}

bool isFile(SongSource::Kind kind)
{
    return kind == SongSource::Kind::AbcFile || kind == SongSource::Kind::MidiFile;
}

} // namespace

ReadingOptions readingOptions(const Settings &settings)
{
    const auto flag = [&](Settings::Setting setting) { return settings.value(setting).toBool(); };
    const bool detectsUnitLength = flag(Settings::MidiAutoDetectUnitLength);
    return {{flag(Settings::MidiMergeChannels), flag(Settings::MidiAutoRealign), flag(Settings::MidiPitchBend),
             detectsUnitLength, flag(Settings::MidiProcessVolume)},
            {detectsUnitLength}};
}

ReadSong readSong(const QVector<SongSource> &sources, const ReadingOptions &options, const std::stop_token &stop,
                  const std::function<void(int number)> &step)
{
    ReadSong song;
    for (int number = 0; number < sources.size(); ++number) {
        const auto &source = sources[number];
        step(number);
        try {
            auto tracks = readTracks(source, options, stop);
            for (auto &track : tracks) {
                throwIfStopped(stop);
                track.toAbc(); // takes long in a long track
            }
            song.tracks += tracks;
            if (isFile(source.kind))
                song.readFiles.append(source.content);
        } catch (const QString &error) {
            song.errors.append({errorTitle(source.kind), error});
        } catch (const Interrupted &) {
            break;
        }
    }
    return song;
}

QVector<SongSource> sourcesOf(const QMimeData &data, FileOrigin origin)
{
    QVector<SongSource> sources;
    for (const auto &url : data.urls()) {
        const auto name = url.toLocalFile();
        const auto endsWith = [&](const char *suffix) {
            return name.endsWith(QLatin1String(suffix), Qt::CaseInsensitive);
        };
        if (endsWith(".abc"))
            sources.append({SongSource::Kind::AbcFile, name});
        else if (endsWith(".mid") || (origin == FileOrigin::Pasted && endsWith(".midi")))
            sources.append({SongSource::Kind::MidiFile, name});
    }
    return sources;
}

QVector<SongSource> sourcesOf(const QString &text)
{
    static const QRegularExpression betweenTunes(QStringLiteral("\\n\\s*\\n(?=X:)"));
    if (text.startsWith(QLatin1String("X:"))) {
        QVector<SongSource> tunes;
        for (const auto &tune : text.split(betweenTunes))
            tunes.append({SongSource::Kind::AbcText, tune});
        return tunes;
    }
    if (text.startsWith(QLatin1String("MML@")))
        return {{SongSource::Kind::MmlText, text}};
    return {};
}
