#include "audio/sound/SampleDecoder.h"

#include <algorithm>
#include <cmath>
#include <cstring>
#include <memory>
#include <sndfile.h>

namespace {

constexpr std::size_t longestSeconds = 600;
constexpr std::size_t largestBytes = std::size_t(256) << 20;
constexpr std::size_t chunkFrames = 4096;
constexpr float largestSample = 16;

struct MemoryFile
{
    std::span<const std::byte> bytes;
    sf_count_t at = 0;
};

MemoryFile &fileOf(void *user)
{
    return *static_cast<MemoryFile *>(user);
}

sf_count_t size(void *user)
{
    return sf_count_t(fileOf(user).bytes.size());
}
sf_count_t tell(void *user)
{
    return fileOf(user).at;
}

sf_count_t seek(sf_count_t offset, int whence, void *user)
{
    auto &file = fileOf(user);
    const sf_count_t base = whence == SEEK_SET ? 0 : whence == SEEK_CUR ? file.at : size(user);
    if (offset < -base || offset > size(user) - base)
        return -1;
    return file.at = base + offset;
}

sf_count_t read(void *to, sf_count_t count, void *user)
{
    auto &file = fileOf(user);
    const auto taken = std::clamp<sf_count_t>(count, 0, size(user) - file.at);
    if (taken > 0)
        std::memcpy(to, file.bytes.data() + file.at, std::size_t(taken));
    file.at += taken;
    return taken;
}

sf_count_t write(const void *, sf_count_t, void *)
{
    return 0;
}

bool supported(int format)
{
    switch (format & SF_FORMAT_TYPEMASK) {
    case SF_FORMAT_WAV:
    case SF_FORMAT_WAVEX:
    case SF_FORMAT_FLAC:
    case SF_FORMAT_OGG: // Vorbis and Opus
    case SF_FORMAT_MPEG:
        return true;
    default:
        return false;
    }
}

// What such a file may begin with; the library need not guess about anything else.
bool hasKnownStart(std::span<const std::byte> bytes)
{
    const auto begins = [bytes](const char *magic) {
        const auto length = std::strlen(magic);
        return bytes.size() > length && std::memcmp(bytes.data(), magic, length) == 0;
    };
    const bool mpegFrame =
        bytes.size() > 2 && bytes[0] == std::byte{0xff} && (bytes[1] & std::byte{0xe0}) == std::byte{0xe0};
    return begins("RIFF") || begins("fLaC") || begins("OggS") || begins("ID3") || mpegFrame;
}

float cleaned(float sample)
{
    return std::isfinite(sample) ? std::clamp(sample, -largestSample, largestSample) : 0.0F;
}

using Planes2 = std::vector<float>[2];

// Reads all frames; their number in the header is not believed.
AudioResult readPlanes(SNDFILE *file, const SF_INFO &info, Planes2 &planes)
{
    const auto channels = std::size_t(info.channels);
    const auto kept = std::min<std::size_t>(channels, 2);
    const auto mostFrames =
        std::min(longestSeconds * std::size_t(info.samplerate), largestBytes / (kept * sizeof(float)));
    std::vector<float> chunk(chunkFrames * channels);
    for (;;) {
        const auto frames = sf_readf_float(file, chunk.data(), sf_count_t(chunkFrames));
        if (frames <= 0)
            return planes[0].empty() ? AudioResult::UnreadableSample : AudioResult::Ok;
        if (planes[0].size() + std::size_t(frames) > mostFrames)
            return AudioResult::SampleTooLong;
        for (std::size_t channel = 0; channel < kept; ++channel)
            for (std::size_t i = 0; i < std::size_t(frames); ++i)
                planes[channel].push_back(cleaned(chunk[i * channels + channel]));
    }
}

} // namespace

AudioResult decodeSample(std::span<const std::byte> bytes, Sound &sound)
{
    if (!hasKnownStart(bytes))
        return AudioResult::UnreadableSample;
    MemoryFile memory{bytes};
    SF_VIRTUAL_IO access{size, seek, read, write, tell};
    SF_INFO info{};
    const std::unique_ptr<SNDFILE, decltype(&sf_close)> file(sf_open_virtual(&access, SFM_READ, &info, &memory),
                                                             sf_close);
    if (!file || !supported(info.format) || info.channels < 1 || info.samplerate < 1)
        return AudioResult::UnreadableSample;

    Planes2 planes;
    if (const auto result = readPlanes(file.get(), info, planes); result != AudioResult::Ok)
        return result;
    auto decoded = std::make_shared<SoundData>(std::min(info.channels, 2), planes[0].size(), info.samplerate);
    for (int channel = 0; channel < decoded->channels(); ++channel)
        std::copy(planes[channel].begin(), planes[channel].end(), decoded->plane(channel));
    sound = std::move(decoded);
    return AudioResult::Ok;
}
