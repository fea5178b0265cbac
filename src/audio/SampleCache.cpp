#include "audio/SampleCache.h"

#include "assets/package/PackageRegistry.h"
#include "audio/Logging.h"
#include "audio/TrackPlayback.h"
#include "base/ParallelJobs.h"

#include <QHash>
#include <QMap>

#include <cmath>

namespace {

// Twelve octaves up or down; what an engine is asked to play.
constexpr double highestRatio = 4096;

bool isPlayable(const NoteEntry &entry)
{
    return !entry.files.isEmpty() && std::isfinite(entry.rate) && entry.rate > 0;
}

} // namespace

SampleCache::SampleCache(const AudioEngine &engine, int sampleRate, Loading beforeLoading, std::size_t byteLimit)
    : engine_(engine), sampleRate_(sampleRate), beforeLoading_(std::move(beforeLoading)),
      longestResampling_(byteLimit / 8), decoded_(byteLimit), resampled_(byteLimit)
{
}

Sample SampleCache::find(const NoteEntry &entry, DspClock frames)
{
    if (!isPlayable(entry))
        return {};
    const auto &path = entry.files.first();
    if (auto sound = resampled_.find({path, entry.rate}, frames))
        return {std::move(sound), 1};
    auto sound = decoded_.find(path, frames);
    if (!sound && !rejected_.contains(path) && decoded_.hasRoomFor(withoutRoom_.value(path))) {
        beforeLoading_(path);
        sound = keep(path, decode(path));
    }
    if (!sound)
        return {};
    const auto ratio = ratioOf(*sound, entry.rate);
    if (ratio >= 1 / highestRatio && ratio <= highestRatio)
        return {std::move(sound), ratio};
    reject(QStringLiteral("%1 at rate %2").arg(path).arg(entry.rate), QStringLiteral("The rate is out of range."));
    return {};
}

SampleCache::Decoded SampleCache::decode(const QString &path) const
{
    try {
        const auto bytes = readGameFile(path);
        Sound sound;
        const auto result = engine_.makeSound(std::as_bytes(std::span(bytes.constData(), size_t(bytes.size()))), sound);
        if (result == AudioResult::Ok)
            return {sound, {}};
        return {nullptr, QString::fromUtf8(engine_.errorText(result))};
    } catch (const QString &message) {
        return {nullptr, message};
    }
}

Sound SampleCache::keep(const QString &path, const Decoded &decoded)
{
    if (!decoded.sound)
        reject(path, decoded.failure);
    else if (decoded_.insert(path, decoded.sound, never))
        return decoded.sound;
    else {
        withoutRoom_.insert(path, decoded.sound->bytes());
        warnOnce(path, QStringLiteral("The samples in use need too much memory."));
    }
    return nullptr;
}

void SampleCache::reject(const QString &path, const QString &reason)
{
    rejected_.insert(path);
    warnOnce(path, reason);
}

void SampleCache::warnOnce(const QString &path, const QString &reason)
{
    if (warnedAbout_.contains(path))
        return;
    warnedAbout_.insert(path);
    qCWarning(audioLog).noquote() << QStringLiteral("%1: %2").arg(path, reason);
}

// The jobs of one prepare(): each sample's decoding brings the resampling to its pitches, which goes first, so that few
// decoded samples are held at once.
class SampleCache::Preparation
{
public:
    Preparation(SampleCache &cache, const std::vector<TrackPlayback> &tracks, const Progress &progress)
        : cache_(cache), progress_(progress)
    {
        for (auto track : tracks) {
            while (const auto note = track.takeNote(maxTicks))
                add(*note);
        }
        for (const auto &longestNotes : std::as_const(needs_))
            total_ += int(longestNotes.size());
        progress_(0, total_);
    }

    std::optional<Job<Decoded>> nextJob()
    {
        while (resampling_.empty() && !needs_.isEmpty()) {
            const auto path = needs_.firstKey();
            const auto longestNotes = needs_.take(path);
            if (const auto sound = cache_.decoded_.find(path, never))
                addResampling(path, sound, longestNotes);
            else if (!cache_.rejected_.contains(path) && !isPrepared(path, longestNotes))
                return decoding(path, longestNotes);
            else
                advance(longestNotes.size());
        }
        if (resampling_.empty())
            return std::nullopt;
        ++resamplingUnderWay_;
        auto job = std::move(resampling_.front());
        resampling_.pop_front();
        return job;
    }

private:
    using LongestNotes = QMap<double, DspClock>; // output frames, by the factor on the sample's speed

    void add(const PlacedNote &note)
    {
        if (!isPlayable(note.entry))
            return;
        auto &frames = needs_[note.entry.files.first()][note.entry.rate];
        frames = std::max(frames, note.fadeEnd - note.start);
    }

    bool isPrepared(const QString &path, const LongestNotes &longestNotes) const
    {
        for (auto note = longestNotes.begin(); note != longestNotes.end(); ++note) {
            if (!cache_.resampled_.find({path, note.key()}, note.value()))
                return false;
        }
        return true;
    }

    Job<Decoded> decoding(const QString &path, const LongestNotes &longestNotes)
    {
        cache_.beforeLoading_(path);
        const auto take = [this, path, longestNotes](const Decoded &decoded) {
            const bool othersHoldSamples = resamplingUnderWay_ > 0 || !resampling_.empty();
            if (decoded.sound && othersHoldSamples && !cache_.decoded_.insert(path, decoded.sound, never))
                needs_.insert(path, longestNotes); // there is room once they are done
            else if (const auto sound = cache_.keep(path, decoded))
                addResampling(path, sound, longestNotes);
            else
                advance(longestNotes.size());
        };
        return {[&cache = cache_, path] { return cache.decode(path); }, take};
    }

    void addResampling(const QString &path, const Sound &sound, const LongestNotes &longestNotes)
    {
        for (auto note = longestNotes.begin(); note != longestNotes.end(); ++note) {
            const auto rate = note.key();
            const auto frames = note.value();
            const auto ratio = cache_.ratioOf(*sound, rate);
            if (ratio != 1 && isShort(*sound, ratio, frames) && !cache_.resampled_.find({path, rate}, frames))
                resampling_.push_back(resampling({path, rate}, sound, ratio, frames));
            else
                advance(1);
        }
    }

    bool isShort(const SoundData &sound, double ratio, DspClock frames) const
    {
        const auto resampledFrames = std::min(double(frames), double(sound.frames()) / ratio);
        return resampledFrames * sound.channels() * sizeof(float) <= double(cache_.longestResampling_);
    }

    // What is not resampled, or finds no room, is interpolated while it plays.
    Job<Decoded> resampling(const Pitch &pitch, const Sound &source, double ratio, DspClock frames)
    {
        const auto work = [&resampler = cache_.resampler_, source, ratio, frames] {
            Decoded made;
            resampler.resample(*source, ratio, frames, made.sound);
            return made;
        };
        const auto take = [this, pitch, frames](const Decoded &made) {
            --resamplingUnderWay_;
            if (made.sound)
                cache_.resampled_.insert(pitch, made.sound, made.sound->frames() < frames ? never : frames);
            advance(1);
        };
        return {work, take};
    }

    void advance(qsizetype pitches)
    {
        done_ += int(pitches);
        progress_(done_, total_);
    }

    SampleCache &cache_;
    const Progress &progress_;
    QMap<QString, LongestNotes> needs_; // by path
    std::deque<Job<Decoded>> resampling_;
    int resamplingUnderWay_ = 0; // jobs that were given away
    int done_ = 0;               // pitches
    int total_ = 0;
};

void SampleCache::prepare(const std::vector<TrackPlayback> &tracks, ParallelJobs &jobs, const Progress &progress)
{
    Preparation preparation(*this, tracks, progress);
    jobs.run<Decoded>([&preparation] { return preparation.nextJob(); });
}
