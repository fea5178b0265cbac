#include "input/Input.h"

#include "base/ErrorText.h"

#include <QFile>
#include <QFileInfo>

namespace {

SongSource standardInput()
{
    QFile file;
    if (!file.open(stdin, QIODevice::ReadOnly))
        throw QStringLiteral("Could not open file: %1.").arg(file.errorString());
    return {SongSource::Kind::Bytes, QStringLiteral("-"), readBytes(file)};
}

} // namespace

InputReading readOne(const QString &path, const Arguments &arguments, ReadingOptions::Refused refused)
{
    InputReading reading{path, {}, {}};
    try {
        if (QFileInfo(path).isDir())
            throw QStringLiteral("There is no music in this folder.");
        auto options = readingOptions([&](auto setting) { return arguments.setting(setting); });
        options.abc = arguments.reading;
        options.refused = refused;
        reading.song = readSource(path == u"-" ? standardInput() : sourceOf(path), options);
        for (const auto &error : qAsConst(reading.song.errors))
            reading.failures.append(error.text);
    } catch (...) {
        reading.failures.append(currentErrorText());
    }
    return reading;
}

namespace {

// Prints what could not be read.
std::optional<ReadSong> taken(const InputReading &reading, bool &failed)
{
    for (const auto &failure : reading.failures) {
        printFailure(reading.path, failure);
        failed = true;
    }
    const bool isThere = reading.failures.isEmpty() || !reading.song.tracks.isEmpty();
    return isThere ? std::optional(reading.song) : std::nullopt;
}

} // namespace

std::optional<ReadSong> readInput(const QString &path, const Arguments &arguments, bool &failed)
{
    return taken(readOne(path, arguments), failed);
}

QVector<NamedInput> readInputs(const Arguments &arguments, bool &failed)
{
    QVector<NamedInput> inputs;
    forEachInput<InputReading>(
        arguments, [&](const QString &path) { return readOne(path, arguments); },
        [&](const InputReading &reading) {
            if (auto song = taken(reading, failed))
                inputs.append({reading.path, *std::move(song)});
        });
    return inputs;
}

void applyTransforms(ReadSong &song, const Arguments &arguments)
{
    const auto before = song.tracks.size();
    for (const auto &transform : arguments.transforms)
        song.tracks = transform(song.tracks);
    if (song.tracks.size() == before)
        return;
    song.parts = QVector<PartReport>(song.tracks.size());
    song.songParts.clear();
}
