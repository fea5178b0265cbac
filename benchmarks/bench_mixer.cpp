// The mixer by itself, against fluidsynth playing the same notes of the same samples on the same core: dry, with its
// usual interpolation. Items are voice-seconds: one voice sounding for one second.
#include "audio/engine/BuiltinEngine.h"
#include "audio/engine/OfflineMix.h"
#include "audio/sound/Resampler.h"
#include "support/DenseSong.h"
#include "support/Fluidsynth.h"
#include "support/Ratios.h"

#include <algorithm>
#include <cmath>
#include <numbers>
#include <sched.h>
#include <stdexcept>
#include <thread>

namespace {

constexpr int sampleRate = DenseSamples::sampleRate;
constexpr int engineRate = 48000;
constexpr int spanSeconds = 10;
constexpr std::size_t spanFrames = std::size_t(spanSeconds) * engineRate;

void check(AudioResult result)
{
    if (result != AudioResult::Ok)
        throw std::runtime_error("the engine refused");
}

const std::vector<Sound> &sounds()
{
    static const auto all = [] {
        std::vector<Sound> made;
        for (const auto &values : DenseSamples::get()) {
            const auto sound = std::make_shared<SoundData>(1, values.size(), sampleRate);
            std::transform(values.begin(), values.end(), sound->plane(0),
                           [](short value) { return float(value) / 32768; });
            made.push_back(sound);
        }
        return made;
    }();
    return all;
}

double ratioOf(const DenseSong::Note &note)
{
    return std::exp2((note.key - DenseSamples::rootOf(note.key)) / 12.0) * sampleRate / engineRate;
}

Mix liveMix(const DenseSong &song)
{
    Mix mix;
    mix.groups.resize(std::size_t(song.tracks) + 1);
    const auto frames = [](int milliseconds) { return DspClock(milliseconds) * engineRate / 1000; };
    for (const auto &note : song.notes) {
        const auto start = frames(note.start);
        const auto end = start + frames(note.length);
        mix.voices.push_back({sounds()[std::size_t(DenseSamples::indexOf(note.instrument(), note.key))],
                              GroupId(note.track + 1), start, end, end + frames(DenseSong::fade), 0.1F, ratioOf(note)});
    }
    return mix;
}

// Every sample is resampled once to every pitch that the song has of it, and every voice plays at ratio 1.
Mix cachedMix(const DenseSong &song)
{
    auto mix = liveMix(song);
    Resampler resampler;
    std::vector<Sound> resampled(sounds().size() * DenseSong::keysPerSample);
    for (std::size_t i = 0; i < mix.voices.size(); ++i) {
        auto &voice = mix.voices[i];
        const auto &note = song.notes[i];
        auto &sound =
            resampled[std::size_t(DenseSamples::indexOf(note.instrument(), note.key) * DenseSong::keysPerSample +
                                  (note.key - DenseSong::lowestKey) % DenseSong::keysPerSample)];
        if (!sound)
            check(resampler.resample(*voice.sound, voice.ratio, 2 * engineRate, sound));
        voice.sound = sound;
        voice.ratio = 1;
    }
    return mix;
}

void mixSpan(const Mix &mix, int span, std::vector<float> &stereo)
{
    stereo.resize(2 * spanFrames);
    check(mixOffline(mix, DspClock(span) * spanFrames, stereo));
}

// Scheduling a block ahead and mixing it, as in playback.
void Live(benchmark::State &state, int voices)
{
    const DenseSong song(voices, 10);
    const auto mix = liveMix(song);
    for (auto _ : state) {
        state.PauseTiming();
        BuiltinEngine engine(EngineOutput::Silent);
        check(engine.initialize());
        GroupId group{};
        for (int i = 0; i < song.tracks; ++i)
            check(engine.createGroup(group));
        state.ResumeTiming();
        std::size_t next = 0;
        VoiceId id{};
        while (next < mix.voices.size() || engine.playingVoices() > 0) {
            while (next < mix.voices.size() && mix.voices[next].start < engine.clock() + engine.blockFrames())
                check(engine.play(mix.voices[next++], id));
            check(engine.update());
        }
    }
    state.SetItemsProcessed(int64_t(state.iterations() * song.voiceSeconds));
}

// 2048 voices that all sound: one block of 512 frames, against the time that it lasts.
void Live2048(benchmark::State &state, int channels)
{
    auto sound = std::make_shared<SoundData>(channels, 60 * sampleRate, sampleRate);
    for (int channel = 0; channel < channels; ++channel)
        for (std::size_t i = 0; i < sound->frames(); ++i)
            sound->plane(channel)[i] = float(i % 100) / 100;
    BuiltinEngine engine(EngineOutput::Silent);
    check(engine.initialize());
    const auto playAll = [&] {
        VoiceId id{};
        for (std::size_t i = 0; i < maxVoices; ++i)
            check(engine.play({sound, masterGroup, engine.clock() + i, never, never, 0.001F,
                               std::exp2(double(i % 25) / 24) * sampleRate / engineRate},
                              id));
    };
    playAll();
    std::size_t blocks = 0;
    for (auto _ : state) {
        check(engine.update());
        if (engine.playingVoices() < maxVoices) {
            state.PauseTiming();
            while (engine.playingVoices() > 0)
                check(engine.update());
            playAll();
            state.ResumeTiming();
        }
        ++blocks;
    }
    const double seconds = double(blocks) * 512 / engineRate;
    state.SetItemsProcessed(int64_t(seconds * double(maxVoices)));
    state.counters["core_share"] =
        benchmark::Counter(seconds, benchmark::Counter::kIsRate | benchmark::Counter::kInvert);
}

// Mixing what was resampled before, on one core or two: each thread takes every n-th span.
void MixCached(benchmark::State &state, unsigned threads)
{
    const DenseSong song(256, 120);
    const auto mix = cachedMix(song);
    cpu_set_t one, all;
    sched_getaffinity(0, sizeof one, &one);
    CPU_ZERO(&all);
    for (unsigned core = 0; core < threads; ++core)
        CPU_SET(core, &all);
    sched_setaffinity(0, sizeof all, &all);
    for (auto _ : state) {
        std::vector<std::jthread> workers;
        for (unsigned worker = 0; worker < threads; ++worker) {
            workers.emplace_back([&, worker] {
                std::vector<float> stereo;
                for (auto span = int(worker); span < song.seconds / spanSeconds; span += int(threads))
                    mixSpan(mix, span, stereo);
            });
        }
    }
    sched_setaffinity(0, sizeof one, &one);
    state.SetItemsProcessed(int64_t(state.iterations() * song.voiceSeconds));
}

// How far above its errors a sine of so many Hz stands that is played a quarter tone up, in dB: live, or resampled
// beforehand as for an export. Only the counter is of interest.
void SineToNoise(benchmark::State &state, double hertz, bool isExport)
{
    Resampler resampler;
    const auto sine = std::make_shared<SoundData>(1, 2 * sampleRate, sampleRate);
    for (std::size_t i = 0; i < sine->frames(); ++i)
        sine->plane(0)[i] = float(std::sin(2 * std::numbers::pi * hertz * double(i) / sampleRate));
    Sound sound = sine;
    const double upAQuarterTone = std::exp2(1.0 / 24);
    double ratio = upAQuarterTone * sampleRate / engineRate;
    std::vector<float> stereo(2 * engineRate);
    for (auto _ : state) {
        if (isExport)
            check(resampler.resample(*sine, std::exchange(ratio, 1), 2 * engineRate, sound));
        Mix mix;
        mix.groups.resize(1);
        mix.voices.push_back({sound, masterGroup, 0, never, never, 1, ratio});
        check(mixOffline(mix, 0, stereo));
    }

    // The sine that fits best in the sense of least squares; the beginning is left out, where it starts.
    constexpr std::size_t first = 1000, last = engineRate - 1000;
    const double step = 2 * std::numbers::pi * hertz * upAQuarterTone / engineRate;
    double cc = 0, ss = 0, cs = 0, yc = 0, ys = 0;
    for (auto i = first; i < last; ++i) {
        const double y = double(stereo[2 * i]), c = std::cos(step * double(i)), s = std::sin(step * double(i));
        cc += c * c, ss += s * s, cs += c * s, yc += y * c, ys += y * s;
    }
    const double determinant = cc * ss - cs * cs;
    const double a = (yc * ss - ys * cs) / determinant, b = (ys * cc - yc * cs) / determinant;
    double signal = 0, noise = 0;
    for (auto i = first; i < last; ++i) {
        const double fitted = a * std::cos(step * double(i)) + b * std::sin(step * double(i));
        signal += fitted * fitted;
        noise += std::pow(double(stereo[2 * i]) - fitted, 2);
    }
    state.counters["dB"] = 10 * std::log10(signal / noise);
}

} // namespace

int main(int argc, char **argv)
{
    const auto add = [](const std::string &name, auto function, auto... argument) {
        return benchmark::RegisterBenchmark(name.c_str(), function, argument...)->Unit(benchmark::kMillisecond);
    };
    std::vector<Ratio> ratios;
    for (const int voices : {16, 64, 256, 1024}) {
        const auto count = std::to_string(voices);
        add("Live" + count, Live, voices);
        add("Fluidsynth" + count, playDenseSong, voices);
        ratios.push_back({"Live" + count, "Fluidsynth" + count, 8, 10});
    }
    std::vector<Limit> limits;
    for (const int hertz : {1000, 5000, 10000}) {
        const auto live = "SineToNoiseLive" + std::to_string(hertz);
        const auto exported = "SineToNoiseExport" + std::to_string(hertz);
        add(live, SineToNoise, hertz, false)->Iterations(1);
        add(exported, SineToNoise, hertz, true)->Iterations(1);
        limits.push_back({live, "dB", Better::More, 65});
        limits.push_back({exported, "dB", Better::More, 95});
    }
    add("Live2048Mono", Live2048, 1);
    add("Live2048Stereo", Live2048, 2);
    limits.push_back({"Live2048Mono", "core_share", Better::Less, 0.1});
    limits.push_back({"Live2048Stereo", "core_share", Better::Less, 0.1});
    add("MixCachedOneCore", MixCached, 1U)->UseRealTime();
    add("MixCachedTwoCores", MixCached, 2U)->UseRealTime();
    ratios.push_back({"MixCachedTwoCores", "MixCachedOneCore", 1.8, 2});
    return runBenchmarks(argc, argv, ratios, limits);
}
