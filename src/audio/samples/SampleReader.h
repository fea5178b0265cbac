#pragma once

#include "audio/sound/Resampler.h"
#include "audio/sound/SampleDecoder.h"

#include <QByteArray>
#include <QString>

#include <cstdint>
#include <functional>
#include <optional>

// Of a note without an end.
constexpr std::uint64_t endless = ~std::uint64_t(0);

// What an engine is asked to play: twelve octaves up or down.
constexpr bool isPlayableRatio(double ratio)
{
    return ratio >= 1.0 / 4096 && ratio <= 4096;
}

// How far into a sample a note of so many output frames gets, in output frames at the sample's own speed.
std::uint64_t sampleReach(double rate, std::uint64_t frames);

// Reads sample files and makes of them what notes play: their sounds, and these resampled to the notes' pitches. [any]
class SampleReader
{
public:
    // The sound of a file's bytes, up to so many frames at least. What it returns is what is wrong with it, if anything
    // is; it is called on every thread.
    using Decode = std::function<QString(std::span<const std::byte> file, std::size_t mostFrames, Sound &sound)>;

    struct Opened
    {
        QByteArray file;
        std::optional<SampleSize> size; // none when only the engine may know
        QString failure;
    };
    struct Decoded
    {
        Sound sound; // null: see failure
        QString failure;
        std::uint64_t reach = endless; // that it serves
    };

    // longest: bytes. A sample that needs more is decoded only as far as notes reach, and nothing is resampled to more.
    SampleReader(Decode decode, int sampleRate, std::size_t longest)
        : decode_(std::move(decode)), sampleRate_(sampleRate), longest_(longest)
    {
    }

    Opened open(const QString &path) const;
    std::size_t costOf(const Opened &opened, std::uint64_t reach) const; // bytes of what decode() gives
    Decoded decode(const Opened &opened, std::uint64_t reach) const;

    // Source frames per output frame, of a note with that factor on the sample's own speed.
    double ratioOf(const SoundData &sound, double rate) const { return rate * sound.sampleRate() / sampleRate_; }
    // Whether a note is played at another speed by a sound of its own, and not interpolated while it plays, as one
    // without an end is.
    bool isResampled(const SoundData &sound, double ratio, std::uint64_t frames) const;
    std::size_t resampledBytes(const SoundData &sound, double ratio, std::uint64_t frames) const;
    // Null when it cannot be.
    Sound resample(const SoundData &sound, double ratio, std::uint64_t frames) const;

private:
    std::size_t framesOf(const Opened &opened, std::uint64_t reach) const; // that are decoded

    Decode decode_;
    int sampleRate_;
    std::size_t longest_;
    mutable Resampler resampler_;
};
