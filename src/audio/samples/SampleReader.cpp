#include "audio/samples/SampleReader.h"

#include "assets/package/PackageRegistry.h"

#include <algorithm>
#include <cmath>

namespace {

std::span<const std::byte> bytesOf(const QByteArray &file)
{
    return std::as_bytes(std::span(file.constData(), std::size_t(file.size())));
}

} // namespace

std::uint64_t sampleReach(double rate, std::uint64_t frames)
{
    const auto reach = std::ceil(double(frames) * rate);
    return frames == endless || reach >= double(endless) ? endless : std::uint64_t(reach);
}

SampleReader::Opened SampleReader::open(const QString &path) const
{
    try {
        const auto file = readGameFile(path);
        return {file, measureSample(bytesOf(file)), {}};
    } catch (const QString &message) {
        return {{}, {}, message};
    }
}

// What an engine's own library may read costs a guess.
std::size_t SampleReader::costOf(const Opened &opened, std::uint64_t reach) const
{
    return opened.size ? opened.size->bytes(framesOf(opened, reach)) : 16 * std::size_t(opened.file.size());
}

// Only long samples are decoded in part, so that a note that becomes longer hardly ever has to wait.
std::size_t SampleReader::framesOf(const Opened &opened, std::uint64_t reach) const
{
    if (!opened.size || opened.size->bytes() <= longest_ || reach == endless)
        return wholeSample;
    constexpr double beyond = 1024; // what a kernel reads behind the last frame that sounds, and more
    return std::size_t(double(reach) * opened.size->sampleRate / sampleRate_ + beyond);
}

SampleReader::Decoded SampleReader::decode(const Opened &opened, std::uint64_t reach) const
{
    if (!opened.failure.isEmpty())
        return {nullptr, opened.failure};
    const auto mostFrames = framesOf(opened, reach);
    Sound sound;
    if (const auto failure = decode_(bytesOf(opened.file), mostFrames, sound); !failure.isEmpty())
        return {nullptr, failure};
    return {sound, {}, sound->frames() < mostFrames ? endless : reach};
}

bool SampleReader::isResampled(const SoundData &sound, double ratio, std::uint64_t frames) const
{
    return ratio != 1 && frames != endless && Resampler::canResample(sound, ratio) &&
           resampledBytes(sound, ratio, frames) <= longest_;
}

std::size_t SampleReader::resampledBytes(const SoundData &sound, double ratio, std::uint64_t frames) const
{
    const auto resampledFrames = std::min(double(frames), double(sound.frames()) / ratio);
    return std::size_t(resampledFrames * sound.channels() * sizeof(float));
}

Sound SampleReader::resample(const SoundData &sound, double ratio, std::uint64_t frames) const
{
    Sound made;
    resampler_.resample(sound, ratio, frames, made);
    return made;
}
