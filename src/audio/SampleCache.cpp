#include "audio/SampleCache.h"

#include "audio/Logging.h"
#include "audio/TrackPlayback.h"
#include "base/ParallelJobs.h"

#include <QHash>
#include <QMap>

#include <cmath>
#include <deque>
#include <variant>

namespace {

bool isPlayable(const NoteEntry &entry)
{
    return !entry.files.isEmpty() && std::isfinite(entry.rate) && entry.rate > 0;
}

} // namespace

SampleReader::Decode decoderOf(const AudioEngine &engine)
{
    return [&engine](std::span<const std::byte> file, std::size_t mostFrames, Sound &sound) {
        const auto result = engine.makeSound(file, mostFrames, sound);
        return result == AudioResult::Ok ? QString() : QString::fromUtf8(engine.errorText(result));
    };
}

// An eighth of the bytes: three minutes in mono.
SampleCache::SampleCache(const AudioEngine &engine, int sampleRate, Loading beforeLoading, std::size_t byteLimit)
    : reader_(decoderOf(engine), sampleRate, byteLimit / 8), beforeLoading_(std::move(beforeLoading)),
      decoded_(byteLimit), resampled_(byteLimit)
{
}

Sample SampleCache::find(const NoteEntry &entry, DspClock frames)
{
    if (!isPlayable(entry))
        return {};
    const auto &path = entry.files.first();
    if (auto sound = resampled_.find({path, entry.rate}, frames))
        return {std::move(sound), 1};
    const auto reach = sampleReach(entry.rate, frames);
    auto sound = decoded_.find(path, reach);
    if (!sound && !rejected_.contains(path) && decoded_.hasRoomFor(withoutRoom_.value(path))) {
        beforeLoading_(path);
        sound = keep(path, reader_.decode(reader_.open(path), reach));
    }
    if (!sound)
        return {};
    const auto ratio = reader_.ratioOf(*sound, entry.rate);
    if (isPlayableRatio(ratio))
        return {std::move(sound), ratio};
    reject(QStringLiteral("%1 at rate %2").arg(path).arg(entry.rate), QStringLiteral("The rate is out of range."));
    return {};
}

Sound SampleCache::keep(const QString &path, const SampleReader::Decoded &decoded)
{
    if (!decoded.sound)
        reject(path, decoded.failure);
    else if (decoded_.insert(path, decoded.sound, decoded.reach))
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

// The jobs of one prepare(): each sample's opening tells what its decoding costs, which brings the resampling to its
// pitches. What others brought goes first, so that few samples are held at once.
class SampleCache::Preparation
{
public:
    using Opened = SampleReader::Opened;
    using Decoded = SampleReader::Decoded;
    using Prepared = std::variant<Opened, Decoded>;
    using PreparationJob = Job<Prepared>;

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

    std::optional<PreparationJob> nextJob()
    {
        while (brought_.empty() && !needs_.isEmpty()) {
            const auto path = needs_.firstKey();
            const auto longestNotes = needs_.take(path);
            if (const auto sound = cache_.decoded_.find(path, reachOf(longestNotes)))
                addResampling(path, sound, longestNotes);
            else if (!cache_.rejected_.contains(path) && !isPrepared(path, longestNotes))
                return opening(path, longestNotes);
            else
                advance(longestNotes.size());
        }
        if (brought_.empty())
            return std::nullopt;
        auto job = std::move(brought_.front());
        brought_.pop_front();
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

    static DspClock reachOf(const LongestNotes &longestNotes)
    {
        DspClock reach = 0;
        for (auto note = longestNotes.begin(); note != longestNotes.end(); ++note)
            reach = std::max(reach, sampleReach(note.key(), note.value()));
        return reach;
    }

    PreparationJob opening(const QString &path, const LongestNotes &longestNotes)
    {
        cache_.beforeLoading_(path);
        const auto take = [this, path, longestNotes](const Prepared &prepared) {
            brought_.push_back(decoding(path, longestNotes, std::get<Opened>(prepared)));
        };
        return {[&reader = cache_.reader_, path] { return reader.open(path); }, take};
    }

    PreparationJob decoding(const QString &path, const LongestNotes &longestNotes, const Opened &opened)
    {
        const auto reach = reachOf(longestNotes);
        const auto take = [this, path, longestNotes](const Prepared &prepared) {
            const auto &decoded = std::get<Decoded>(prepared);
            const bool othersHoldSamples = resamplings_ > 0;
            if (decoded.sound && othersHoldSamples && !cache_.decoded_.insert(path, decoded.sound, decoded.reach))
                needs_.insert(path, longestNotes); // there is room once they are done
            else if (const auto sound = cache_.keep(path, decoded))
                addResampling(path, sound, longestNotes);
            else
                advance(longestNotes.size());
        };
        return {[&reader = cache_.reader_, opened, reach] { return reader.decode(opened, reach); }, take,
                cache_.reader_.costOf(opened, reach)};
    }

    void addResampling(const QString &path, const Sound &sound, const LongestNotes &longestNotes)
    {
        for (auto note = longestNotes.begin(); note != longestNotes.end(); ++note) {
            const auto rate = note.key();
            const auto frames = note.value();
            const auto ratio = cache_.reader_.ratioOf(*sound, rate);
            if (cache_.reader_.isResampled(*sound, ratio, frames) && !cache_.resampled_.find({path, rate}, frames))
                brought_.push_back(resampling({path, rate}, sound, ratio, frames));
            else
                advance(1);
        }
    }

    // What is not resampled, or finds no room, is interpolated while it plays.
    PreparationJob resampling(const Pitch &pitch, const Sound &source, double ratio, DspClock frames)
    {
        ++resamplings_;
        const auto work = [&reader = cache_.reader_, source, ratio, frames] {
            return Decoded{reader.resample(*source, ratio, frames), {}, frames};
        };
        const auto take = [this, pitch, frames](const Prepared &prepared) {
            const auto &made = std::get<Decoded>(prepared);
            --resamplings_;
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
    std::deque<PreparationJob> brought_;
    int resamplings_ = 0; // those among them and those under way
    int done_ = 0;        // pitches
    int total_ = 0;
};

void SampleCache::prepare(const std::vector<TrackPlayback> &tracks, ParallelJobs &jobs, const Progress &progress)
{
    Preparation preparation(*this, tracks, progress);
    jobs.run<Preparation::Prepared>([&preparation] { return preparation.nextJob(); });
}
