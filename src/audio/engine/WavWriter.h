#pragma once

#include <cstdint>
#include <filesystem>
#include <memory>
#include <sndfile.h>
#include <span>

// A RIFF wave file of 48 kHz, stereo, 16 bit, written front to back through libsndfile. [audio] [render]
class WavWriter
{
public:
    static constexpr int sampleRate = 48000;

    // False when the file cannot be created. It has a valid header at once.
    bool open(const std::filesystem::path &path);
    // Interleaved frames, rounded and saturated, without dither. False when the disk is full, or the file longer than
    // its format allows: 4 GiB, more than six hours.
    bool write(std::span<const float> stereo);
    // Completes the header. False when something was not written. Does nothing when no file is open.
    bool close();

private:
    std::unique_ptr<SNDFILE, int (*)(SNDFILE *)> file_{nullptr, sf_close};
    std::uint64_t dataBytes_ = 0;
    bool isWhole_ = true; // nothing was refused so far
};
