#pragma once

#include "audio/sound/SoundFormat.h"

#include <cstdint>
#include <filesystem>
#include <memory>
#include <sndfile.h>
#include <string>

// What a sound file says of itself, in UTF-8; empty: nothing.
struct SoundTags
{
    std::string title;
    std::string album;
    std::string trackNumber;
    std::string comment;
    std::string software;
};

struct SoundFileOptions
{
    SoundCoding coding = SoundCoding::Wav16;
    double quality = 0.7; // 0..1, of a coding with losses
    SoundTags tags = {};
};

// A sound file of 48 kHz and stereo, written front to back through libsndfile. [audio] [render]
class SoundFileWriter
{
public:
    static constexpr int sampleRate = 48000;

    // What a file can hold: a wave file 4 GiB, the others without a bound that matters.
    static std::uint64_t mostFrames(SoundCoding coding);

    // False when the file cannot be created. A wave file has a valid header at once.
    bool open(const std::filesystem::path &path, const SoundFileOptions &options = {});
    // Interleaved frames. Whole numbers are rounded, without dither, and all but floats are limited to full scale.
    // False when the disk is full, or the file longer than its format allows.
    bool write(std::span<const float> stereo);
    // Completes the file. False when something was not written. Does nothing when no file is open.
    bool close();

    // Of the file that was opened last.
    std::uint64_t samples() const { return samples_; }        // two a frame
    std::uint64_t clippedSamples() const { return clipped_; } // that were limited
    int systemError() const { return systemError_; }          // errno of what failed; 0 when that is not known

private:
    void configure(const SoundFileOptions &options);
    bool writePart(std::span<const float> part);
    bool writeInts(std::span<const float> part);
    bool writeShorts(std::span<const float> part);
    bool writeFloats(std::span<const float> part);
    bool note(bool isDone);

    std::unique_ptr<SNDFILE, int (*)(SNDFILE *)> file_{nullptr, sf_close};
    SoundCoding coding_ = SoundCoding::Wav16;
    std::uint64_t samples_ = 0;
    std::uint64_t clipped_ = 0;
    int systemError_ = 0;
    bool isWhole_ = true; // nothing was refused so far
};
