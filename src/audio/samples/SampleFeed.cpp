#include "audio/samples/SampleFeed.h"

#include "base/ErrorText.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace {

bool isPlayable(const SampleNeed &need)
{
    return !need.path.isEmpty() && std::isfinite(need.rate) && need.rate > 0;
}

// Notes of nearly the same length share a sound.
std::uint64_t resampledLength(std::uint64_t frames)
{
    constexpr std::uint64_t step = 1 << 15;
    return frames > endless - step ? endless : (frames + step - 1) / step * step;
}

} // namespace

// An eighth of the bytes is three minutes in mono.
SampleFeed::SampleFeed(SampleReader::Decode decode, int sampleRate, Host host, int threads, std::size_t byteLimit)
    : reader_(std::move(decode), sampleRate, byteLimit / 8), host_(std::move(host)), byteLimit_(byteLimit),
      sounds_(byteLimit), threads_(threads), pool_(threads > 0 ? std::make_unique<JobPool>(threads) : nullptr)
{
}

SampleFeed::Found SampleFeed::find(const SampleNeed &need)
{
    if (!isPlayable(need) || rejected_.contains(need.path))
        return {};
    if (const auto sound = provided_.value(need.path))
        return {State::Ready, sound, reader_.ratioOf(*sound, need.rate)};
    if (auto sound = sounds_.find({need.path, need.rate}, need.frames))
        return {State::Ready, std::move(sound)};
    auto sound = findDecoded(need);
    if (!sound)
        return {State::Loading};
    const auto ratio = reader_.ratioOf(*sound, need.rate);
    if (!isPlayableRatio(ratio)) {
        reject(QStringLiteral("%1 at rate %2").arg(need.path).arg(need.rate),
               QStringLiteral("The rate is out of range."));
        return {};
    }
    if (reader_.isResampled(*sound, ratio, need.frames))
        return {State::Loading};
    return {State::Ready, std::move(sound), ratio};
}

Sound SampleFeed::findDecoded(const SampleNeed &need)
{
    return sounds_.find(decodedOf(need.path), sampleReach(need.rate, need.frames));
}

bool SampleFeed::want(const SampleNeed &need)
{
    if (find(need).state != State::Loading) {
        keepFor(need, need.clock);
        return true;
    }
    if (auto *const waiting = waitingFor(need)) {
        waiting->need.frames = std::max(waiting->need.frames, need.frames);
        waiting->until = std::max(waiting->until, need.clock);
        return true;
    }
    if (waiting_.size() >= mostWaiting)
        return false;
    waiting_.push_back({need, need.clock});
    return true;
}

void SampleFeed::wantNow(const SampleNeed &need)
{
    Waiting late{{need.path, need.rate, need.frames, now_}, now_, true};
    if (auto *const waiting = waitingFor(need)) {
        late.need.frames = std::max(need.frames, waiting->need.frames);
        late.until = std::max(now_, waiting->until);
        if (waiting->isLate) {
            *waiting = late;
            return;
        }
        waiting_.erase(waiting_.begin() + (waiting - waiting_.data()));
    }
    const auto firstInTime = std::ranges::find(waiting_, false, &Waiting::isLate);
    waiting_.insert(firstInTime, late);
}

SampleFeed::Waiting *SampleFeed::waitingFor(const SampleNeed &need)
{
    const auto found = std::ranges::find_if(waiting_, [&need](const Waiting &waiting) {
        return waiting.need.rate == need.rate && waiting.need.path == need.path;
    });
    return found != waiting_.end() ? &*found : nullptr;
}

// Of a sample that is resampled for the note, the decoded one may go.
void SampleFeed::keepFor(const SampleNeed &need, std::uint64_t until)
{
    const Pitch pitch{need.path, need.rate};
    sounds_.keepUntil(sounds_.find(pitch, need.frames) ? pitch : decodedOf(need.path), until);
}

void SampleFeed::forgetWants()
{
    waiting_.clear();
    opened_.clear();
    sounds_.giveUpAll();
    lacksRoom_ = false;
}

void SampleFeed::work(std::uint64_t now)
{
    now_ = now;
    lacksRoom_ = false;
    takeLoaded();
    for (std::size_t i = 0; i < waiting_.size() && underWay_ <= threads_;) {
        const auto step = advance(waiting_[i]);
        if (step == Step::Served)
            waiting_.erase(waiting_.begin() + std::ptrdiff_t(i));
        else if (step == Step::Waits || pool_) // without threads the step is over, and the next can follow
            ++i;
    }
}

SampleFeed::Step SampleFeed::advance(const Waiting &waiting)
{
    const auto need = waiting.need;
    if (find(need).state != State::Loading) {
        keepFor(need, waiting.until);
        return Step::Served;
    }
    if (busy_.contains(decodedOf(need.path)) || busy_.contains({need.path, need.rate}))
        return Step::Waits;
    if (const auto sound = findDecoded(need))
        return beginResampling(need, sound);
    return opened_.contains(need.path) ? beginDecoding(need) : beginOpening(need);
}

SampleFeed::Step SampleFeed::beginOpening(const SampleNeed &need)
{
    host_.beforeLoading(need.path);
    return begin(decodedOf(need.path), 0, [this, path = need.path]() -> Take {
        return [this, path, opened = reader_.open(path)] { opened_.insert(path, opened); };
    });
}

SampleFeed::Step SampleFeed::beginDecoding(const SampleNeed &need)
{
    const auto reach = sampleReach(need.rate, need.frames);
    const auto cost = reader_.costOf(opened_[need.path], reach);
    if (!reserve(need, cost))
        return Step::Waits;
    return begin(decodedOf(need.path), cost, [this, need, opened = opened_.take(need.path), reach]() -> Take {
        return [this, need, decoded = reader_.decode(opened, reach)] {
            if (!decoded.sound)
                return reject(need.path, decoded.failure);
            sounds_.put(decodedOf(need.path), decoded.sound, decoded.reach);
            sounds_.keepUntil(decodedOf(need.path), need.clock);
        };
    });
}

SampleFeed::Step SampleFeed::beginResampling(const SampleNeed &need, const Sound &sound)
{
    const auto ratio = reader_.ratioOf(*sound, need.rate);
    const auto frames = resampledLength(need.frames);
    const auto cost = reader_.resampledBytes(*sound, ratio, frames);
    if (!reserve(need, cost))
        return Step::Waits;
    return begin({need.path, need.rate}, cost, [this, need, sound, ratio, frames]() -> Take {
        return [this, need, frames, made = reader_.resample(*sound, ratio, frames)] {
            sounds_.put({need.path, need.rate}, made, made->frames() < frames ? endless : frames);
            sounds_.giveUp(decodedOf(need.path));
        };
    });
}

// Room for what is about to be loaded.
bool SampleFeed::reserve(const SampleNeed &need, std::size_t bytes)
{
    if (bytes > byteLimit_) {
        reject(need.path, QStringLiteral("The sample needs too much memory."));
        return false;
    }
    const bool hasRoom = sounds_.makeRoom(reserved_ + bytes, now_, need.clock);
    lacksRoom_ = lacksRoom_ || !hasRoom;
    return hasRoom;
}

SampleFeed::Step SampleFeed::begin(const Pitch &busy, std::size_t bytes, std::function<Take()> work)
{
    busy_.insert(busy);
    reserved_ += bytes;
    ++underWay_;
    const auto guarded = [this, busy, bytes, work = std::move(work)]() -> Take {
        try {
            return [this, busy, bytes, taken = work()] { take(taken, busy, bytes); };
        } catch (...) {
            const auto failed = [this, busy, text = currentErrorText()] { reject(busy.first, text); };
            return [this, busy, bytes, failed] { take(failed, busy, bytes); };
        }
    };
    if (!pool_) {
        guarded()();
        return Step::Began;
    }
    pool_->start([this, guarded] {
        auto taken = guarded();
        const std::lock_guard lock(mutex_);
        loaded_.push_back(std::move(taken));
    });
    return Step::Began;
}

void SampleFeed::take(const Take &taken, const Pitch &busy, std::size_t bytes)
{
    --underWay_;
    reserved_ -= bytes;
    busy_.remove(busy);
    taken();
}

void SampleFeed::takeLoaded()
{
    std::vector<Take> loaded;
    {
        const std::lock_guard lock(mutex_);
        loaded.swap(loaded_);
    }
    for (const auto &taken : loaded)
        taken();
}

void SampleFeed::reject(const QString &path, const QString &reason)
{
    rejected_.insert(path);
    if (warnedAbout_.contains(path))
        return;
    warnedAbout_.insert(path);
    host_.warn(QStringLiteral("%1: %2").arg(path, reason));
}
