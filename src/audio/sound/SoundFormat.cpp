#include "audio/sound/SoundFormat.h"

#include <sndfile.h>

namespace {

constexpr SoundFormat formats[] = {
    {SoundCoding::Wav16, "WAV, 16 bit", "wav", 16, SF_FORMAT_WAV | SF_FORMAT_PCM_16},
    {SoundCoding::Wav24, "WAV, 24 bit", "wav", 24, SF_FORMAT_WAV | SF_FORMAT_PCM_24},
    {SoundCoding::WavFloat, "WAV, 32 bit float", "wav", 32, SF_FORMAT_WAV | SF_FORMAT_FLOAT},
    {SoundCoding::Flac16, "FLAC, 16 bit", "flac", 16, SF_FORMAT_FLAC | SF_FORMAT_PCM_16},
    {SoundCoding::Flac24, "FLAC, 24 bit", "flac", 24, SF_FORMAT_FLAC | SF_FORMAT_PCM_24},
    {SoundCoding::Vorbis, "Ogg Vorbis", "ogg", 0, SF_FORMAT_OGG | SF_FORMAT_VORBIS},
    {SoundCoding::Opus, "Opus", "opus", 0, SF_FORMAT_OGG | SF_FORMAT_OPUS},
    {SoundCoding::Mp3, "MP3", "mp3", 0, SF_FORMAT_MPEG | SF_FORMAT_MPEG_LAYER_III},
};

// Whether the library's list has it; it leaves out what it was built without.
bool isListed(int format, int countCommand, int entryCommand)
{
    int count = 0;
    sf_command(nullptr, countCommand, &count, sizeof count);
    for (int i = 0; i < count; ++i) {
        SF_FORMAT_INFO entry{};
        entry.format = i;
        if (sf_command(nullptr, entryCommand, &entry, sizeof entry) == 0 && entry.format == format)
            return true;
    }
    return false;
}

} // namespace

std::span<const SoundFormat> soundFormats()
{
    return formats;
}

const SoundFormat &formatOf(SoundCoding coding)
{
    return formats[std::size_t(coding)];
}

bool isBuiltIn(SoundCoding coding)
{
    SF_INFO info{};
    info.samplerate = 48000;
    info.channels = 2;
    info.format = formatOf(coding).sndfileFormat;
    return sf_format_check(&info) != 0 &&
           isListed(info.format & SF_FORMAT_TYPEMASK, SFC_GET_FORMAT_MAJOR_COUNT, SFC_GET_FORMAT_MAJOR) &&
           isListed(info.format & SF_FORMAT_SUBMASK, SFC_GET_FORMAT_SUBTYPE_COUNT, SFC_GET_FORMAT_SUBTYPE);
}
