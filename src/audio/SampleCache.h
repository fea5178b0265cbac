#pragma once

#include "assets/Instrument.h"
#include "audio/AudioEngine.h"
#include "audio/samples/SampleReader.h"
#include "audio/samples/SoundStore.h"

#include <QHash>
#include <QPair>
#include <QSet>

#include <functional>
#include <vector>

class ParallelJobs;
class TrackPlayback;

// What sounds for one note: a sound that is null where there is silence, and source frames per output frame.
struct Sample
{
    Sound sound;
    double ratio = 1;
};

// Decodes as the engine does, which must outlive it. [any]
SampleReader::Decode decoderOf(const AudioEngine &engine);

// The samples of instruments, decoded once; prepared ones are also resampled to the pitches that notes need. Each of
// the two kinds keeps at most so many bytes, and nothing is resampled that would take more than an eighth of them:
// three minutes in mono; of a sample that would, only what the notes need is decoded. A sample that is missing or
// damaged, or finds no room among those in use, is one logged warning and silence. [audio] [render]
class SampleCache
{
public:
    using Loading = std::function<void(const QString &path)>;
    using Progress = std::function<void(int done, int total)>;

    // The engine must outlive the cache. beforeLoading is called before each sample is read and decoded.
    SampleCache(const AudioEngine &engine, int sampleRate, Loading beforeLoading, std::size_t byteLimit = 256 << 20);

    // For a note that sounds for so many output frames. Reads and decodes the sample when it is not there yet.
    Sample find(const NoteEntry &entry, DspClock frames);

    // Decodes and resamples, on all cores, what the tracks' remaining notes need. progress: told the pitches of samples
    // that are done and all of them, at first with none done and last, once, with all of them done.
    void prepare(
        const std::vector<TrackPlayback> &tracks, ParallelJobs &jobs, const Progress &progress = [](int, int) {});

    // Samples that are missing or damaged, of those that were asked for.
    int rejected() const { return int(rejected_.size()); }

private:
    class Preparation;
    using Pitch = QPair<QString, double>; // a sample's path and the factor on its speed
    Sound keep(const QString &path, const SampleReader::Decoded &decoded);
    void reject(const QString &path, const QString &reason);
    void warnOnce(const QString &path, const QString &reason);

    SampleReader reader_;
    Loading beforeLoading_;
    SoundStore<QString> decoded_;
    SoundStore<Pitch> resampled_;
    QSet<QString> rejected_;                  // those that never will sound
    QHash<QString, std::size_t> withoutRoom_; // and those that once found no room, with the bytes that they need
    QSet<QString> warnedAbout_;
};
