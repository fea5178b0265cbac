#pragma once

#include "assets/Instrument.h"
#include "audio/AudioEngine.h"
#include "audio/SoundStore.h"

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

// The samples of instruments, decoded once; prepared ones are also resampled to the pitches that notes need. Each of
// the two kinds keeps at most 256 MB. A sample that is missing, damaged or does not fit is one logged warning and
// silence. [audio] [render]
class SampleCache
{
public:
    using Loading = std::function<void(const QString &path)>;

    // The engine must outlive the cache. beforeLoading is called before each sample is read and decoded.
    SampleCache(const AudioEngine &engine, int sampleRate, Loading beforeLoading);

    // For a note that sounds for so many output frames. Reads and decodes the sample when it is not there yet.
    Sample find(const NoteEntry &entry, DspClock frames);

    // Decodes and resamples, on all cores, what the track's remaining notes need.
    void prepare(const std::vector<TrackPlayback> &tracks, ParallelJobs &jobs);

private:
    class Preparation;
    using Pitch = QPair<QString, double>; // a sample's path and the factor on its speed
    struct Decoded
    {
        Sound sound;
        QString failure;
    };

    Decoded decode(const QString &path) const; // [any]
    Sound keep(const QString &path, const Decoded &decoded);
    void reject(const QString &path, const QString &reason);
    double ratioOf(const SoundData &sound, double rate) const { return rate * sound.sampleRate() / sampleRate_; }

    static constexpr std::size_t byteLimit = std::size_t(256) * 1024 * 1024;

    const AudioEngine &engine_;
    int sampleRate_;
    Loading beforeLoading_;
    SoundStore<QString> decoded_{byteLimit};
    SoundStore<Pitch> resampled_{byteLimit};
    QSet<QString> rejected_;
};
