#include "audio/sound/SoundFileWriter.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cerrno>
#include <cmath>
#include <limits>

namespace {

constexpr int channels = 2;
constexpr std::size_t partSamples = 8192;

// To the nearest, halves to even.
std::int16_t toInt16(float sample)
{
    const float scaled = sample * 32768.0F;
    const float limited = scaled < -32768.0F ? -32768.0F : scaled > 32767.0F ? 32767.0F : scaled;
    // The sum has the integer in its lowest bits: a rounding that the compiler turns into vector code.
    constexpr float shift = 12582912.0F;
    return std::int16_t(std::bit_cast<std::int32_t>(limited + shift) - std::bit_cast<std::int32_t>(shift));
}

// The upper 24 bits of 32.
std::int32_t toInt24(float sample)
{
    const double scaled = std::clamp(double(sample) * 8388608.0, -8388608.0, 8388607.0);
    return std::int32_t(std::lrint(scaled)) * 256;
}

// How many are beyond what the nearest whole numbers of so many bits can say.
std::uint32_t countBeyond(std::span<const float> samples, int bits)
{
    const float scale = std::ldexp(1.0F, bits - 1);
    const float highest = 1 - 0.5F / scale;
    const float lowest = -1 - 0.5F / scale;
    std::uint32_t count = 0;
    for (const auto sample : samples)
        count += std::uint32_t(sample > highest) + std::uint32_t(sample < lowest);
    return count;
}

SNDFILE *created(const std::filesystem::path &path, SoundCoding coding)
{
    SF_INFO info{};
    info.samplerate = SoundFileWriter::sampleRate;
    info.channels = channels;
    info.format = formatOf(coding).sndfileFormat;
#ifdef _WIN32
    return sf_wchar_open(path.c_str(), SFM_WRITE, &info);
#else
    return sf_open(path.c_str(), SFM_WRITE, &info);
#endif
}

} // namespace

std::uint64_t SoundFileWriter::mostFrames(SoundCoding coding)
{
    constexpr std::uint64_t roomForTags = 1 << 16;
    constexpr std::uint64_t longestWave = std::numeric_limits<std::uint32_t>::max() - roomForTags;
    switch (coding) {
    case SoundCoding::Wav16:
    case SoundCoding::Wav24:
    case SoundCoding::WavFloat:
        return longestWave / std::uint64_t(channels * formatOf(coding).bits / 8);
    default:
        return std::numeric_limits<std::int64_t>::max() / channels;
    }
}

// Remembers why something was not done.
bool SoundFileWriter::note(bool isDone)
{
    if (!isDone && isWhole_)
        systemError_ = errno;
    isWhole_ = isWhole_ && isDone;
    return isWhole_;
}

bool SoundFileWriter::open(const std::filesystem::path &path, const SoundFileOptions &options)
{
    coding_ = options.coding;
    samples_ = 0;
    clipped_ = 0;
    systemError_ = 0;
    isWhole_ = true;
    errno = 0;
    file_.reset(created(path, coding_));
    if (!note(file_ != nullptr))
        return false;
    configure(options);
    if ((formatOf(coding_).sndfileFormat & SF_FORMAT_TYPEMASK) == SF_FORMAT_WAV)
        note(sf_command(file_.get(), SFC_UPDATE_HEADER_NOW, nullptr, 0) == 0 && sf_error(file_.get()) == 0);
    return isWhole_;
}

// A coding that does not have a tag or a quality goes without.
void SoundFileWriter::configure(const SoundFileOptions &options)
{
    const auto &tags = options.tags;
    const std::pair<int, const std::string *> texts[] = {{SF_STR_TITLE, &tags.title},
                                                         {SF_STR_ALBUM, &tags.album},
                                                         {SF_STR_TRACKNUMBER, &tags.trackNumber},
                                                         {SF_STR_COMMENT, &tags.comment},
                                                         {SF_STR_SOFTWARE, &tags.software}};
    for (const auto &[kind, text] : texts) {
        if (!text->empty())
            sf_set_string(file_.get(), kind, text->c_str());
    }
    if (formatOf(coding_).bits == 0) {
        double quality = std::clamp(options.quality, 0.01, 1.0); // MP3 has none at 0
        sf_command(file_.get(), SFC_SET_VBR_ENCODING_QUALITY, &quality, sizeof quality);
    }
}

bool SoundFileWriter::write(std::span<const float> stereo)
{
    isWhole_ = isWhole_ && (samples_ + stereo.size()) / channels <= mostFrames(coding_);
    while (isWhole_ && !stereo.empty()) {
        const auto part = stereo.first(std::min(stereo.size(), partSamples));
        errno = 0;
        note(writePart(part));
        stereo = stereo.subspan(part.size());
    }
    return isWhole_;
}

bool SoundFileWriter::writePart(std::span<const float> part)
{
    const int bits = formatOf(coding_).bits;
    samples_ += part.size();
    constexpr int bitsOfLosses = 16; // what is limited is heard, however it is coded
    if (bits < 32)
        clipped_ += countBeyond(part, bits == 0 ? bitsOfLosses : bits);
    return bits == 16 ? writeShorts(part) : bits == 24 ? writeInts(part) : writeFloats(part);
}

bool SoundFileWriter::writeShorts(std::span<const float> part)
{
    std::array<std::int16_t, partSamples> converted;
    std::transform(part.begin(), part.end(), converted.begin(), toInt16);
    const auto count = sf_count_t(part.size());
    return sf_write_short(file_.get(), converted.data(), count) == count;
}

bool SoundFileWriter::writeInts(std::span<const float> part)
{
    std::array<std::int32_t, partSamples> converted;
    std::transform(part.begin(), part.end(), converted.begin(), toInt24);
    const auto count = sf_count_t(part.size());
    return sf_write_int(file_.get(), converted.data(), count) == count;
}

bool SoundFileWriter::writeFloats(std::span<const float> part)
{
    const auto count = sf_count_t(part.size());
    if (coding_ == SoundCoding::WavFloat)
        return sf_write_float(file_.get(), part.data(), count) == count;
    std::array<float, partSamples> limited;
    std::transform(part.begin(), part.end(), limited.begin(),
                   [](float sample) { return std::clamp(sample, -1.0F, 1.0F); });
    return sf_write_float(file_.get(), limited.data(), count) == count;
}

bool SoundFileWriter::close()
{
    if (!file_)
        return true;
    errno = 0;
    return note(sf_close(file_.release()) == 0);
}
