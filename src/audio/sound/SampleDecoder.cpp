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

// An open file in memory, which must not move.
class SampleFile
{
public:
    explicit SampleFile(std::span<const std::byte> bytes) : memory_{bytes}
    {
        SF_VIRTUAL_IO access{size, seek, read, write, tell};
        if (hasKnownStart(bytes))
            file_.reset(sf_open_virtual(&access, SFM_READ, &info_, &memory_));
    }

    bool isReadable() const { return file_ && supported(info_.format) && info_.channels > 0 && info_.samplerate > 0; }
    std::size_t channels() const { return std::size_t(info_.channels); }
    int keptChannels() const { return std::min(info_.channels, 2); }
    int sampleRate() const { return info_.samplerate; }

    std::size_t longestAllowed() const
    {
        return std::min(longestSeconds * std::size_t(info_.samplerate),
                        largestBytes / (std::size_t(keptChannels()) * sizeof(float)));
    }
    // By the header, which is not believed.
    bool tellsLength() const { return info_.frames > 0 && info_.frames < SF_COUNT_MAX; }
    std::size_t toldFrames() const { return std::size_t(info_.frames); }
    // What its bytes may hold at most, in any format.
    std::size_t plausibleFrames() const { return framesPerByte * memory_.bytes.size(); }

    std::size_t readFrames(std::vector<float> &interleaved, std::size_t mostFrames)
    {
        interleaved.resize(mostFrames * channels());
        const auto frames = sf_readf_float(file_.get(), interleaved.data(), sf_count_t(mostFrames));
        return frames > 0 ? std::size_t(frames) : 0;
    }

private:
    static constexpr std::size_t framesPerByte = 8192;

    MemoryFile memory_;
    SF_INFO info_{};
    std::unique_ptr<SNDFILE, decltype(&sf_close)> file_{nullptr, sf_close};
};

// The beginning of a sound, or a longer one with silence behind it.
std::shared_ptr<SoundData> resized(const SoundData &from, std::size_t frames)
{
    auto sound = std::make_shared<SoundData>(from.channels(), frames, from.sampleRate());
    for (int channel = 0; channel < from.channels(); ++channel)
        std::copy_n(from.plane(channel), std::min(frames, from.frames()), sound->plane(channel));
    return sound;
}

void takeFrames(const std::vector<float> &interleaved, std::size_t channels, std::size_t frames, SoundData &sound,
                std::size_t at)
{
    for (int channel = 0; channel < sound.channels(); ++channel) {
        auto *const plane = sound.plane(channel) + at;
        for (std::size_t i = 0; i < frames; ++i)
            plane[i] = cleaned(interleaved[i * channels + std::size_t(channel)]);
    }
}

// Where the file goes on behind the room that its header made likely, there is soon room for twice as much.
AudioResult readSound(SampleFile &file, std::size_t mostFrames, Sound &sound)
{
    const auto likely = file.tellsLength() ? file.toldFrames() : file.plausibleFrames();
    const auto room = std::min({likely, mostFrames, file.longestAllowed(), file.plausibleFrames()});
    auto read = std::make_shared<SoundData>(file.keptChannels(), room, file.sampleRate());
    std::vector<float> chunk;
    std::size_t done = 0;
    while (done < mostFrames) {
        const auto frames = file.readFrames(chunk, std::min(chunkFrames, mostFrames - done));
        if (frames == 0)
            break;
        if (done + frames > file.longestAllowed())
            return AudioResult::SampleTooLong;
        if (done + frames > read->frames())
            read = resized(*read, std::min(2 * (done + frames), file.longestAllowed()));
        takeFrames(chunk, file.channels(), frames, *read, done);
        done += frames;
    }
    if (done == 0)
        return AudioResult::UnreadableSample;
    sound = done == read->frames() ? std::move(read) : resized(*read, done);
    return AudioResult::Ok;
}

} // namespace

std::optional<SampleSize> measureSample(std::span<const std::byte> bytes)
{
    const SampleFile file(bytes);
    if (!file.isReadable())
        return std::nullopt;
    const auto frames = file.tellsLength() ? std::min(file.toldFrames(), file.longestAllowed()) : file.longestAllowed();
    return SampleSize{file.keptChannels(), file.sampleRate(), frames};
}

AudioResult decodeSample(std::span<const std::byte> bytes, std::size_t mostFrames, Sound &sound)
{
    SampleFile file(bytes);
    if (!file.isReadable())
        return AudioResult::UnreadableSample;
    if (mostFrames != wholeSample && file.tellsLength() && file.toldFrames() > file.longestAllowed())
        return AudioResult::SampleTooLong;
    return readSound(file, mostFrames, sound);
}
