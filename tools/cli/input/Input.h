#pragma once

#include "arguments/Arguments.h"
#include "base/ParallelJobs.h"
#include "input/InputFiles.h"
#include "song/SongReader.h"
#include "streams/Messages.h"

// An input that was read, or why it could not be, or not all of it.
struct InputReading
{
    QString path;
    ReadSong song;
    QStringList failures;
};

// Reads a MIDI, ABC or MML file, or standard input for "-". Throws and prints nothing. [any]
InputReading readOne(const QString &path, const Arguments &arguments,
                     ReadingOptions::Refused refused = ReadingOptions::Refused::IsAnError);

// The same, but prints what cannot be read and sets `failed`; nothing when that is everything.
std::optional<ReadSong> readInput(const QString &path, const Arguments &arguments, bool &failed);

struct NamedInput
{
    QString path;
    ReadSong song;
};

// The inputs of which something can be read, with a bar meanwhile.
QVector<NamedInput> readInputs(const Arguments &arguments, bool &failed);

// The song with the transformations; its parts are others when they are merged. Throws a QString.
void applyTransforms(ReadSong &song, const Arguments &arguments);

// Each input, and each file of a folder, on so many cores; the results are taken in the order of the inputs, with a bar
// meanwhile.
template<typename Result>
void forEachInput(const Arguments &arguments, const std::function<Result(const QString &path)> &work,
                  const std::function<void(const Result &)> &take, std::size_t cores = ParallelJobs::allCores())
{
    const auto files = inputFiles(arguments.inputs);
    const auto total = int(files.size());
    int next = 0;
    int done = 0;
    ParallelJobs jobs(cores);
    jobs.run<Result>([&]() -> std::optional<Job<Result>> {
        if (next == total)
            return std::nullopt;
        const auto &path = files[next++];
        return Job<Result>{[&work, path] { return work(path); },
                           [&](Result result) {
                               take(result);
                               printProgress(++done, total);
                           }};
    });
}
