#include "SampleFile.h"

#include "OggSerial.h"

#include <QBuffer>
#include <QString>

#include <algorithm>
#include <memory>
#include <sndfile.h>

namespace {

constexpr double vorbisQuality = 0.5;
// The Vorbis encoder keeps what it is given on the stack.
constexpr size_t framesAtOnce = 1024;

QBuffer &bufferOf(void *user)
{
    return *static_cast<QBuffer *>(user);
}

sf_count_t seekIn(sf_count_t offset, int whence, void *user)
{
    auto &buffer = bufferOf(user);
    const auto base = whence == SEEK_SET ? 0 : whence == SEEK_CUR ? buffer.pos() : buffer.size();
    return buffer.seek(base + offset) ? buffer.pos() : -1;
}

SF_VIRTUAL_IO bufferAccess()
{
    SF_VIRTUAL_IO access{};
    access.get_filelen = [](void *user) -> sf_count_t { return bufferOf(user).size(); };
    access.seek = seekIn;
    access.read = [](void *to, sf_count_t count, void *user) -> sf_count_t {
        return bufferOf(user).read(static_cast<char *>(to), count);
    };
    access.write = [](const void *from, sf_count_t count, void *user) -> sf_count_t {
        return bufferOf(user).write(static_cast<const char *>(from), count);
    };
    access.tell = [](void *user) -> sf_count_t { return bufferOf(user).pos(); };
    return access;
}

Signal interleaved(const Channels &channels)
{
    Signal frames;
    frames.reserve(channels.size() * channels.front().size());
    for (size_t i = 0; i < channels.front().size(); ++i)
        for (const auto &channel : channels)
            frames.push_back(channel[i]);
    return frames;
}

void check(bool ok, SNDFILE *file)
{
    if (!ok)
        throw QStringLiteral("Could not write a sample: %1").arg(QString::fromUtf8(sf_strerror(file)));
}

void writeFrames(SNDFILE *file, const Channels &channels)
{
    const auto frames = interleaved(channels);
    const auto step = framesAtOnce * channels.size();
    for (size_t i = 0; i < frames.size(); i += step) {
        const auto count = sf_count_t(std::min(step, frames.size() - i));
        check(sf_write_double(file, &frames[i], count) == count, file);
    }
}

} // namespace

const char *fileEnding(SampleFormat format)
{
    return format == SampleFormat::Vorbis ? ".ogg" : ".wav";
}

QByteArray sampleFile(const Channels &channels, int rate, SampleFormat format)
{
    SF_INFO info{};
    info.samplerate = rate;
    info.channels = int(channels.size());
    info.format = format == SampleFormat::Vorbis ? SF_FORMAT_OGG | SF_FORMAT_VORBIS : SF_FORMAT_WAV | SF_FORMAT_PCM_16;
    QBuffer buffer;
    buffer.open(QIODevice::ReadWrite);
    auto access = bufferAccess();
    std::unique_ptr<SNDFILE, int (*)(SNDFILE *)> file(sf_open_virtual(&access, SFM_WRITE, &info, &buffer), sf_close);
    check(file != nullptr, nullptr);
    if (format == SampleFormat::Vorbis) {
        auto quality = vorbisQuality;
        sf_command(file.get(), SFC_SET_VBR_ENCODING_QUALITY, &quality, sizeof quality);
    }
    writeFrames(file.get(), channels);
    check(sf_close(file.release()) == 0, nullptr);
    return format == SampleFormat::Vorbis ? withOggSerial(buffer.data(), 1) : buffer.data();
}
