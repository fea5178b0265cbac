#pragma once

#include <span>

// How a sound file is written.
enum class SoundCoding { Wav16, Wav24, WavFloat, Flac16, Flac24, Vorbis, Opus, Mp3 };

struct SoundFormat
{
    SoundCoding coding;
    const char *name;   // "WAV, 16 bit"
    const char *ending; // of a file's name, in lower case: "wav"
    int bits;           // of a sample; 0: it is coded with losses, as good as its quality says; 32: a float
    int sndfileFormat;  // of libsndfile
};

// All, by their coding. [any]
std::span<const SoundFormat> soundFormats();
const SoundFormat &formatOf(SoundCoding coding);

// Whether this build of libsndfile writes it. [any]
bool isBuiltIn(SoundCoding coding);
