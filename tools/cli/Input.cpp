#include "Input.h"

#include "Messages.h"

#include <QFile>

namespace {

SongSource standardInput()
{
    QFile file;
    if (!file.open(stdin, QIODevice::ReadOnly))
        throw QStringLiteral("Could not open file.");
    return {SongSource::Kind::Bytes, QStringLiteral("-"), readBytes(file)};
}

} // namespace

std::optional<ReadSong> readInput(const QString &path, const Arguments &arguments, bool &failed)
{
    ReadSong song;
    const auto read = [&] {
        auto options = readingOptions([&](auto setting) { return arguments.setting(setting); });
        options.abc = arguments.reading;
        song = readSource(path == u"-" ? standardInput() : sourceOf(path), options);
        for (const auto &error : song.errors)
            throw error.text; // a source has no more than one
    };
    if (runOrPrint(path, read))
        return song;
    failed = true;
    return song.tracks.isEmpty() ? std::nullopt : std::optional(song);
}

QVector<NamedInput> readInputs(const Arguments &arguments, bool &failed)
{
    QVector<NamedInput> inputs;
    const auto total = int(arguments.inputs.size());
    for (int done = 0; done < total; ++done) {
        const auto &path = arguments.inputs[done];
        printProgress(done, total);
        if (auto song = readInput(path, arguments, failed))
            inputs.append({path, *std::move(song)});
    }
    printProgress(total, total);
    return inputs;
}
