#include "audio/engine/WavWriter.h"

#include <algorithm>
#include <array>
#include <bit>
#include <limits>

namespace {

constexpr int channels = 2;
constexpr std::uint64_t headerBytes = 44;
constexpr std::uint64_t mostDataBytes = std::numeric_limits<std::uint32_t>::max() - headerBytes;

// To the nearest, halves to even.
std::int16_t toInt16(float sample)
{
    const float scaled = sample * 32768.0F;
    const float limited = scaled < -32768.0F ? -32768.0F : scaled > 32767.0F ? 32767.0F : scaled;
    // The sum has the integer in its lowest bits: a rounding that the compiler turns into vector code.
    constexpr float shift = 12582912.0F;
    return std::int16_t(std::bit_cast<std::int32_t>(limited + shift) - std::bit_cast<std::int32_t>(shift));
}

SNDFILE *created(const std::filesystem::path &path)
{
    SF_INFO info{};
    info.samplerate = WavWriter::sampleRate;
    info.channels = channels;
    info.format = SF_FORMAT_WAV | SF_FORMAT_PCM_16;
#ifdef _WIN32
    return sf_wchar_open(path.c_str(), SFM_WRITE, &info);
#else
    return sf_open(path.c_str(), SFM_WRITE, &info);
#endif
}

} // namespace

bool WavWriter::open(const std::filesystem::path &path)
{
    dataBytes_ = 0;
    file_.reset(created(path));
    isWhole_ = file_ && sf_command(file_.get(), SFC_UPDATE_HEADER_NOW, nullptr, 0) == 0 && sf_error(file_.get()) == 0;
    return isWhole_;
}

bool WavWriter::write(std::span<const float> stereo)
{
    dataBytes_ += stereo.size() * sizeof(std::int16_t);
    isWhole_ = isWhole_ && dataBytes_ <= mostDataBytes;
    std::array<std::int16_t, 8192> converted;
    while (isWhole_ && !stereo.empty()) {
        const auto part = stereo.first(std::min(stereo.size(), converted.size()));
        std::transform(part.begin(), part.end(), converted.begin(), toInt16);
        const auto count = sf_count_t(part.size());
        isWhole_ = sf_write_short(file_.get(), converted.data(), count) == count;
        stereo = stereo.subspan(part.size());
    }
    return isWhole_;
}

bool WavWriter::close()
{
    if (!file_)
        return true;
    return sf_close(file_.release()) == 0 && isWhole_;
}
