#include "audio/engine/WavWriter.h"

#include <algorithm>
#include <array>
#include <bit>
#include <limits>

static_assert(std::endian::native == std::endian::little, "samples are written as they lie in memory");

namespace {

constexpr std::uint32_t headerBytes = 44;
constexpr std::uint16_t channels = 2;
constexpr std::uint16_t bytesPerFrame = channels * sizeof(std::int16_t);

// To the nearest, halves to even.
std::int16_t toInt16(float sample)
{
    const float scaled = sample * 32768.0F;
    const float limited = scaled < -32768.0F ? -32768.0F : scaled > 32767.0F ? 32767.0F : scaled;
    // The sum has the integer in its lowest bits: a rounding that the compiler turns into vector code.
    constexpr float shift = 12582912.0F;
    return std::int16_t(std::bit_cast<std::int32_t>(limited + shift) - std::bit_cast<std::int32_t>(shift));
}

} // namespace

bool WavWriter::open(const std::filesystem::path &path)
{
    dataBytes_ = 0;
    file_.clear();
    file_.open(path, std::ios::binary | std::ios::trunc);
    writeHeader();
    file_.flush();
    return bool(file_);
}

bool WavWriter::write(std::span<const float> stereo)
{
    const auto bytes = stereo.size() * sizeof(std::int16_t);
    if (bytes > std::numeric_limits<std::uint32_t>::max() - headerBytes - dataBytes_)
        return false;
    std::array<std::int16_t, 8192> converted;
    while (!stereo.empty()) {
        const auto part = stereo.first(std::min(stereo.size(), converted.size()));
        std::transform(part.begin(), part.end(), converted.begin(), toInt16);
        file_.write(reinterpret_cast<const char *>(converted.data()),
                    std::streamsize(part.size() * sizeof(std::int16_t)));
        stereo = stereo.subspan(part.size());
    }
    dataBytes_ += std::uint32_t(bytes);
    return bool(file_);
}

bool WavWriter::close()
{
    if (!file_.is_open())
        return true;
    file_.seekp(0);
    writeHeader();
    file_.close();
    return bool(file_);
}

void WavWriter::writeHeader()
{
    const auto text = [this](const char *four) { file_.write(four, 4); };
    const auto number = [this](auto value) { file_.write(reinterpret_cast<const char *>(&value), sizeof value); };
    text("RIFF");
    number(std::uint32_t(headerBytes - 8 + dataBytes_));
    text("WAVE");
    text("fmt ");
    number(std::uint32_t(16));
    number(std::uint16_t(1)); // PCM
    number(channels);
    number(std::uint32_t(sampleRate));
    number(std::uint32_t(sampleRate * bytesPerFrame));
    number(bytesPerFrame);
    number(std::uint16_t(16)); // bits per sample
    text("data");
    number(dataBytes_);
}
