#pragma once

#include <cstdint>
#include <filesystem>
#include <fstream>
#include <span>

// A RIFF wave file of 48 kHz, stereo, 16 bit, written front to back. [audio]
class WavWriter
{
public:
    static constexpr int sampleRate = 48000;

    // False when the file cannot be created.
    bool open(const std::filesystem::path &path);
    // Interleaved frames, rounded and saturated. False when the disk is full, or the file longer than its format
    // allows.
    bool write(std::span<const float> stereo);
    // Completes the header. False when something was not written. Does nothing when no file is open.
    bool close();

private:
    void writeHeader();

    std::ofstream file_;
    std::uint32_t dataBytes_ = 0;
};
