// The engine's arithmetic where Qt cannot be had, such as a program for Windows that is built elsewhere: each kind of
// kernel gives what its definition says, however the time is cut, live and offline alike. Prints what fails.
#include "audio/engine/Mixer.h"
#include "audio/engine/ReferenceMix.h"
#include "audio/sound/Resampler.h"
#include "audio/sound/Signals.h"

#include <cstdio>
#include <cstring>

namespace {

int failures = 0;

void expect(bool isRight, const char *what)
{
    std::printf("%s: %s\n", isRight ? "ok" : "FAILED", what);
    failures += !isRight;
}

bool areSame(std::span<const float> a, std::span<const float> b)
{
    return a.size() == b.size() && std::memcmp(a.data(), b.data(), a.size_bytes()) == 0;
}

double farthest(std::span<const float> a, std::span<const float> b)
{
    double distance = 0;
    for (std::size_t i = 0; i < a.size(); ++i)
        distance = std::max(distance, std::abs(double(a[i]) - double(b[i])));
    return distance;
}

// Voices that begin, fade and run out at any frame; ratio 1 and others, mono and stereo.
Mix someMix()
{
    std::minstd_rand random(7);
    const auto below = [&random](unsigned n) { return random() % n; };
    const Sound sounds[] = {noiseSound(1, 3000, 1), noiseSound(2, 2000, 2), noiseSound(1, 50, 3)};
    Mix mix{{{1, 0}}, {}};
    for (int i = 0; i < 60; ++i) {
        const DspClock start = below(4000), end = start + below(3000);
        mix.voices.push_back({sounds[below(3)], masterGroup, start, end, end + below(1000), float(below(128)) / 127,
                              below(2) ? 1.0 : 0.25 + below(1000) / 400.0});
    }
    return mix;
}

constexpr std::size_t frames = 8 * mixerBlockFrames;

std::vector<float> offline(const Mix &mix, std::initializer_list<std::size_t> cuts)
{
    std::vector<float> stereo(2 * frames);
    std::size_t from = 0;
    for (const auto to : cuts) {
        if (mixOffline(mix, from, std::span(stereo).subspan(2 * from, 2 * (to - from))) != AudioResult::Ok)
            return {};
        from = to;
    }
    return stereo;
}

std::vector<float> live(const Mix &mix)
{
    const auto mixer = std::make_unique<Mixer>();
    for (std::uint32_t slot = 0; slot < mix.voices.size(); ++slot) {
        VoiceShape shape;
        if (shapeOf(mix.voices[slot], shape) != AudioResult::Ok || !mixer->play(slot, masterGroup, shape))
            return {};
    }
    std::vector<float> stereo(2 * frames);
    for (std::size_t at = 0; at < frames; at += mixerBlockFrames)
        mixer->mix(&stereo[2 * at], mixerBlockFrames);
    return stereo;
}

void checkMix()
{
    const auto mix = someMix();
    const auto whole = offline(mix, {frames});
    const ReferenceMix reference(mix);
    std::vector<float> expected;
    for (DspClock clock = 0; clock < frames; ++clock) {
        const auto [left, right] = reference.at(clock);
        expected.insert(expected.end(), {float(left), float(right)});
    }
    expect(whole.size() == expected.size() && farthest(whole, expected) < 1e-5, "mix as it is defined");
    expect(areSame(whole, offline(mix, {1, 700, 701, 3000, frames})), "the same bits wherever it is cut");
    expect(areSame(whole, live(mix)), "the same bits live");
}

// Of every length up to some, so that the rest behind the last full vector is met.
void checkKernels(const Kernels &fast)
{
    const auto &plain = portableKernels();
    const auto noise = noiseSound(2, 400, 9);
    double distance = 0;
    for (std::size_t n = 0; n < 40; ++n) {
        std::vector<float> a(48), b(48);
        const Planes<const float> from{noise->plane(0) + 8, nullptr};
        plain.add(a.data(), from.left, n, 0.3F);
        fast.add(b.data(), from.left, n, 0.3F);
        plain.addFading(a.data(), from.left, n, 50, 0.01F);
        fast.addFading(b.data(), from.left, n, 50, 0.01F);
        distance = std::max(distance, farthest(a, b));
        plain.interpolate({a.data(), nullptr}, from, n, Position(1) << 31, Position(3) << 31);
        fast.interpolate({b.data(), nullptr}, from, n, Position(1) << 31, Position(3) << 31);
        distance = std::max(distance, farthest(std::span(a).first(n), std::span(b).first(n)));
    }
    expect(distance < 1e-6, "both kinds of kernels agree");
}

void checkResampler()
{
    constexpr double frequency = 0.05, ratio = 1.5;
    Sound sound;
    const auto result = Resampler().resample(*sineSound(frequency, 20'000), ratio, 10'000, sound);
    expect(result == AudioResult::Ok && signalToNoise({sound->plane(0) + 1000, 8000}, frequency * ratio) > 90,
           "resampled sine is clean");
}

} // namespace

int main()
{
    std::printf("kernels: %s\n", bestKernels().name);
    checkMix();
    if (const auto *const fast = avx2Kernels())
        checkKernels(*fast);
    checkResampler();
    return failures == 0 ? 0 : 1;
}
