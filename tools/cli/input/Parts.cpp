#include "input/Parts.h"

#include "song/SongParts.h"
#include "streams/Messages.h"

#include <QDir>
#include <QFileInfo>
#include <QHash>
#include <QSet>

#include <algorithm>

namespace {

void renameImports(Song &song, const QVector<SongImported> &others)
{
    QHash<QString, QString> names;
    for (auto &imported : song.imports) {
        const auto isSame = [&](const SongImported &other) { return other.id == imported.id; };
        if (!imported.id.isEmpty() && std::any_of(others.cbegin(), others.cend(), isSame)) {
            const auto name = SongParts::freeImportId(others + song.imports);
            names.insert(imported.id, name);
            imported.id = name;
        }
    }
    for (auto &part : song.parts)
        part.import = names.value(part.import, part.import);
}

class PartCollector
{
public:
    explicit PartCollector(const Arguments &arguments) : arguments_(arguments) {}

    void add(const NamedInput &input)
    {
        if (input.song.song)
            addSong(*input.song.song);
        else
            addTracks(input);
        parts_.tracks += input.song.tracks;
        parts_.reports += input.song.parts;
    }

    Parts take() { return std::move(parts_); }

private:
    void addSong(Song song);
    void addTracks(const NamedInput &input);
    void addPart(SongPart part);

    const Arguments &arguments_;
    Parts parts_;
    QSet<QString> ids_;
    bool hasSong_ = false;
};

// Ids that another song has, too, become new ones.
void PartCollector::addSong(Song song)
{
    auto &whole = parts_.song;
    renameImports(song, whole.imports);
    const auto imports = whole.imports + song.imports;
    if (!std::exchange(hasSong_, true)) {
        auto parts = std::move(whole.parts);
        whole = song;
        whole.parts = std::move(parts);
    }
    whole.imports = imports;
    for (const auto &part : song.parts)
        addPart(part);
}

void PartCollector::addTracks(const NamedInput &input)
{
    QString importId;
    if (input.song.report) { // of an import
        const auto path = input.path == u"-" ? QString() : QDir::cleanPath(QFileInfo(input.path).absoluteFilePath());
        const auto settings = importSettings([this](auto setting) { return arguments_.setting(setting); });
        importId = SongParts::freeImportId(parts_.song.imports);
        parts_.song.imports.append({path, settings, {}, importId});
    }
    for (const auto &track : input.song.tracks) {
        auto part = SongParts::partOf(track, SongParts::freeId(parts_.song));
        part.import = importId;
        addPart(part);
    }
}

void PartCollector::addPart(SongPart part)
{
    if (ids_.contains(part.id))
        part.id = SongParts::freeId(parts_.song);
    ids_.insert(part.id);
    parts_.song.parts.append(std::move(part));
}

void transform(Parts &parts, const Arguments &arguments)
{
    for (const auto &change : arguments.transforms)
        parts.tracks = change(parts.tracks);
    auto &songParts = parts.song.parts;
    if (songParts.size() != parts.tracks.size()) { // merged
        songParts.clear();
        parts.reports = QVector<PartReport>(parts.tracks.size());
        for (const auto &track : qAsConst(parts.tracks))
            songParts.append(SongParts::partOf(track, SongParts::freeId(parts.song)));
        return;
    }
    for (int i = 0; i < songParts.size(); ++i)
        songParts[i].abc = parts.tracks[i].toAbc();
}

} // namespace

Parts partsOf(const QVector<NamedInput> &inputs, const Arguments &arguments)
{
    PartCollector collector(arguments);
    for (const auto &input : inputs)
        collector.add(input);
    auto parts = collector.take();
    if (!arguments.transforms.isEmpty())
        transform(parts, arguments);
    return parts;
}

Parts readParts(const Arguments &arguments, bool &failed)
{
    const auto inputs = readInputs(arguments, failed);
    Parts parts;
    failed |= !runOrPrint(arguments.inputs.join(QStringLiteral(", ")), [&] { parts = partsOf(inputs, arguments); });
    return parts;
}

ReadSong readSongOf(const Parts &parts)
{
    ReadSong song;
    song.tracks = parts.tracks;
    song.parts = parts.reports;
    song.song = parts.song;
    for (int i = 0; i < parts.song.parts.size(); ++i)
        song.songParts.insert(i, parts.song.parts[i]);
    return song;
}
