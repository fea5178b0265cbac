// The mixer, against fluidsynth playing the same notes of the same samples on the same core: dry, with its usual
// interpolation. Items are voice-seconds: one voice sounding for one second.
#include "audio/engine/BuiltinEngine.h"
#include "support/MidiBytes.h"
#include "support/Ratios.h"

#include <QDir>
#include <QTemporaryDir>

#include <cmath>
#include <fluidsynth.h>
#include <numbers>
#include <optional>
#include <random>
#include <sched.h>
#include <stdexcept>
#include <thread>

namespace {

constexpr int mostTracks = 16; // a MIDI file has no more channels
constexpr int leastVoicesPerTrack = 16;
constexpr int instruments = 8;
constexpr int lowestKey = 36, highestKey = 99;
constexpr int keysPerSample = 4;
constexpr int sampleRate = 44100;
constexpr int engineRate = 48000;
constexpr int spanSeconds = 10;
constexpr std::size_t spanFrames = std::size_t(spanSeconds) * engineRate;
constexpr int ticksPerSecond = 1000;
constexpr int fadeTicks = 50;

void check(AudioResult result)
{
    if (result != AudioResult::Ok)
        throw std::runtime_error("the engine refused");
}

// Two seconds of decaying noise and tone at each fourth key of each instrument.
struct Samples
{
    std::vector<std::vector<short>> integers;
    std::vector<Sound> sounds;

    static const Samples &get()
    {
        static const Samples samples;
        return samples;
    }
    static int indexOf(int instrument, int key)
    {
        return instrument * ((highestKey - lowestKey) / keysPerSample + 1) + (key - lowestKey) / keysPerSample;
    }
    static int rootOf(int key) { return lowestKey + (key - lowestKey) / keysPerSample * keysPerSample; }

private:
    Samples()
    {
        std::minstd_rand random(1);
        for (int instrument = 0; instrument < instruments; ++instrument) {
            for (int root = lowestKey; root <= highestKey; root += keysPerSample)
                add(440 * std::exp2((root - 69) / 12.0), random);
        }
    }

    void add(double hertz, std::minstd_rand &random)
    {
        constexpr std::size_t frames = 2 * sampleRate;
        auto sound = std::make_shared<SoundData>(1, frames, sampleRate);
        std::vector<short> values;
        for (std::size_t i = 0; i < frames; ++i) {
            const double seconds = double(i) / sampleRate;
            const double wave = std::sin(2 * std::numbers::pi * hertz * seconds) + double(random() % 100) / 1000;
            values.push_back(short(8000 * wave * std::exp(-2 * seconds)));
            sound->plane(0)[i] = float(values.back()) / 32768;
        }
        integers.push_back(std::move(values));
        sounds.push_back(std::move(sound));
    }
};

struct Note
{
    int track;
    int key;
    int start; // milliseconds
    int length;

    int instrument() const { return track % instruments; }
};

// `voices` notes at any time: each voice plays one note after the other, on keys of its own, since fluidsynth ends a
// note whose key is struck again.
struct Song
{
    int seconds;
    int tracks;
    std::vector<Note> notes;
    double voiceSeconds = 0;

    Song(int voices, int songSeconds)
        : seconds(songSeconds), tracks(std::clamp(voices / leastVoicesPerTrack, 1, mostTracks))
    {
        std::minstd_rand random(2);
        const int voicesPerTrack = voices / tracks;
        const int keys = std::max(32, voicesPerTrack); // two octaves and a half, as far as that goes
        const int keysPerVoice = keys / voicesPerTrack;
        for (int voice = 0; voice < voices; ++voice) {
            for (int at = int(random() % 100); at < 1000 * seconds;) {
                const int length = 150 + int(random() % 850);
                const int key = lowestKey + voice / tracks + voicesPerTrack * int(random() % keysPerVoice);
                notes.push_back({voice % tracks, key, at, length});
                voiceSeconds += double(length + fadeTicks) / 1000;
                at += length + fadeTicks;
            }
        }
        std::stable_sort(notes.begin(), notes.end(), [](const Note &a, const Note &b) { return a.start < b.start; });
    }

    static double ratioOf(const Note &note)
    {
        return std::exp2((note.key - Samples::rootOf(note.key)) / 12.0) * sampleRate / engineRate;
    }

    Mix liveMix() const
    {
        Mix mix;
        mix.groups.resize(tracks + 1);
        for (const auto &note : notes) {
            const auto start = DspClock(note.start) * engineRate / 1000,
                       end = start + DspClock(note.length) * engineRate / 1000;
            mix.voices.push_back({Samples::get().sounds[std::size_t(Samples::indexOf(note.instrument(), note.key))],
                                  GroupId(note.track + 1), start, end, end + fadeTicks * engineRate / 1000, 0.1F,
                                  ratioOf(note)});
        }
        return mix;
    }
};

// What an export does before it mixes: every sample is resampled once to every pitch that the song has of it.
void precache(const BuiltinEngine &engine, const Song &song, Mix &mix)
{
    std::vector<Sound> resampled(Samples::get().sounds.size() * keysPerSample);
    std::size_t longest = 0;
    for (const auto &voice : mix.voices)
        longest = std::max(longest, std::size_t(voice.fadeEnd - voice.start));
    for (std::size_t i = 0; i < mix.voices.size(); ++i) {
        auto &voice = mix.voices[i];
        const auto &note = song.notes[i];
        auto &sound = resampled[std::size_t(Samples::indexOf(note.instrument(), note.key) * keysPerSample +
                                            (note.key - lowestKey) % keysPerSample)];
        if (!sound)
            check(engine.resample(*voice.sound, voice.ratio, longest, sound));
        voice.sound = sound;
        voice.ratio = 1;
    }
}

void mixSpan(const BuiltinEngine &engine, const Mix &mix, int span, std::vector<float> &stereo)
{
    stereo.resize(2 * spanFrames);
    check(engine.mixSpan(mix, DspClock(span) * spanFrames, stereo));
}

// Scheduling a block ahead and mixing it, as in playback.
void Live(benchmark::State &state, int voices)
{
    const Song song(voices, 10);
    const auto mix = song.liveMix();
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

// The whole export of a decoded song: resampling, mixing, writing the wave file.
void Export(benchmark::State &state, int voices)
{
    const Song song(voices, 300);
    const QTemporaryDir directory;
    const auto file = directory.filePath(QStringLiteral("song.wav")).toStdString();
    std::vector<float> stereo;
    for (auto _ : state) {
        BuiltinEngine engine(EngineOutput::WavFile, file);
        check(engine.initialize());
        auto mix = song.liveMix();
        precache(engine, song, mix);
        for (int span = 0; span <= song.seconds / spanSeconds; ++span) {
            mixSpan(engine, mix, span, stereo);
            check(engine.write(stereo));
        }
        check(engine.release());
    }
    state.SetItemsProcessed(int64_t(state.iterations() * song.voiceSeconds));
}

void Precache(benchmark::State &state, int voices)
{
    const Song song(voices, 300);
    for (auto _ : state) {
        BuiltinEngine engine(EngineOutput::Silent);
        auto mix = song.liveMix();
        precache(engine, song, mix);
        benchmark::DoNotOptimize(mix);
    }
    state.SetItemsProcessed(int64_t(state.iterations() * song.voiceSeconds));
}

// Mixing alone, on one core or all: each thread takes every n-th second.
void MixCached(benchmark::State &state, unsigned threads)
{
    const Song song(256, 120);
    const BuiltinEngine engine(EngineOutput::Silent);
    auto mix = song.liveMix();
    precache(engine, song, mix);
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
                    mixSpan(engine, mix, span, stereo);
            });
        }
    }
    sched_setaffinity(0, sizeof one, &one);
    state.SetItemsProcessed(int64_t(state.iterations() * song.voiceSeconds));
}

// --- fluidsynth ---

// A sound font of our samples: program n of bank 0 is instrument n.
class Font
{
public:
    Font()
    {
        for (const auto &values : Samples::get().integers) {
            auto *sample = new_fluid_sample();
            fluid_sample_set_sound_data(sample, const_cast<short *>(values.data()), nullptr, unsigned(values.size()),
                                        sampleRate, 0);
            samples_.push_back(sample);
        }
        for (int instrument = 0; instrument < instruments; ++instrument)
            programs_[instrument] = {this, instrument};
    }
    ~Font()
    {
        for (auto *sample : samples_)
            delete_fluid_sample(sample);
    }

    fluid_sfont_t *create()
    {
        auto *font = new_fluid_sfont([](fluid_sfont_t *) { return "samples"; }, preset, nullptr, nullptr, release);
        fluid_sfont_set_data(font, this);
        return font;
    }

private:
    struct Program
    {
        Font *font;
        int instrument;
    };

    static int release(fluid_sfont_t *font) { return delete_fluid_sfont(font); }

    static fluid_preset_t *preset(fluid_sfont_t *parent, int, int program)
    {
        auto *font = static_cast<Font *>(fluid_sfont_get_data(parent));
        auto *created = new_fluid_preset(
            parent, [](fluid_preset_t *) { return "instrument"; }, [](fluid_preset_t *) { return 0; },
            [](fluid_preset_t *) { return 0; }, noteOn, delete_fluid_preset);
        fluid_preset_set_data(created, &font->programs_[program % instruments]);
        return created;
    }

    static int noteOn(fluid_preset_t *preset, fluid_synth_t *synth, int channel, int key, int velocity)
    {
        const auto &program = *static_cast<Program *>(fluid_preset_get_data(preset));
        auto *sample = program.font->samples_[std::size_t(Samples::indexOf(program.instrument, key))];
        fluid_sample_set_pitch(sample, Samples::rootOf(key), 0);
        auto *voice = fluid_synth_alloc_voice(synth, sample, channel, key, velocity);
        if (!voice)
            return FLUID_FAILED;
        fluid_voice_gen_set(voice, GEN_SAMPLEMODE, 0);
        fluid_voice_gen_set(voice, GEN_VOLENVRELEASE, float(1200 * std::log2(fadeTicks / 1000.0)));
        fluid_synth_start_voice(synth, voice);
        return FLUID_OK;
    }

    std::vector<fluid_sample_t *> samples_;
    Program programs_[instruments];
};

// The song as a MIDI file: a tick is a millisecond.
QByteArray midiOf(const Song &song)
{
    struct Event
    {
        int time;
        bool on;
        Note note;
    };
    std::vector<Event> events;
    for (const auto &note : song.notes) {
        events.push_back({note.start, true, note});
        events.push_back({note.start + note.length, false, note});
    }
    std::stable_sort(events.begin(), events.end(), [](const Event &a, const Event &b) { return a.time < b.time; });
    auto track = MidiBytes::tempo(0, 500000);
    for (int channel = 0; channel < song.tracks; ++channel)
        track += MidiBytes::midiEvent(0, {0xC0 | channel, channel});
    int time = 0;
    for (const auto &event : events) {
        track += event.on ? MidiBytes::noteOn(event.time - time, event.note.key, 100, event.note.track)
                          : MidiBytes::noteOff(event.time - time, event.note.key, event.note.track);
        time = event.time;
    }
    return "MThd" + MidiBytes::bigEndian(6, 4) + MidiBytes::bytes({0, 0, 0, 1}) +
           MidiBytes::bigEndian(ticksPerSecond / 2, 2) + MidiBytes::chunk(track + MidiBytes::endOfTrack());
}

void Fluidsynth(benchmark::State &state, int voices)
{
    const Song song(voices, 10);
    const auto midi = midiOf(song);
    Font font;
    for (auto _ : state) {
        state.PauseTiming();
        auto *settings = new_fluid_settings();
        fluid_settings_setint(settings, "synth.reverb.active", 0);
        fluid_settings_setint(settings, "synth.chorus.active", 0);
        fluid_settings_setint(settings, "synth.polyphony", 4096);
        fluid_settings_setnum(settings, "synth.sample-rate", engineRate);
        fluid_settings_setstr(settings, "player.timing-source", "sample");
        auto *synth = new_fluid_synth(settings);
        fluid_synth_add_sfont(synth, font.create());
        auto *player = new_fluid_player(synth);
        fluid_player_add_mem(player, midi.constData(), std::size_t(midi.size()));
        fluid_player_play(player);
        std::vector<float> left(512), right(512);
        state.ResumeTiming();
        int most = 0;
        while (fluid_player_get_status(player) == FLUID_PLAYER_PLAYING) {
            fluid_synth_write_float(synth, 512, left.data(), 0, 1, right.data(), 0, 1);
            most = std::max(most, fluid_synth_get_active_voice_count(synth));
        }
        state.PauseTiming();
        state.counters["voices"] = most;
        delete_fluid_player(player);
        delete_fluid_synth(synth);
        delete_fluid_settings(settings);
        state.ResumeTiming();
    }
    state.SetItemsProcessed(int64_t(state.iterations() * song.voiceSeconds));
}

} // namespace

int main(int argc, char **argv)
{
    const auto add = [](const std::string &name, auto function, auto argument) {
        return benchmark::RegisterBenchmark(name.c_str(), function, argument)->Unit(benchmark::kMillisecond);
    };
    std::vector<Ratio> ratios;
    for (const int voices : {16, 64, 256, 1024}) {
        const auto count = std::to_string(voices);
        add("Live" + count, Live, voices);
        add("Fluidsynth" + count, Fluidsynth, voices);
        ratios.push_back({"Live" + count, "Fluidsynth" + count, 8, 10});
    }
    for (const int voices : {64, 256}) {
        const auto count = std::to_string(voices);
        add("Precache" + count, Precache, voices);
        add("Export" + count, Export, voices);
        ratios.push_back({"Export" + count, "Fluidsynth" + count, voices == 256 ? 25.0 : 0, 40});
    }
    add("Live2048Mono", Live2048, 1);
    add("Live2048Stereo", Live2048, 2);
    add("MixCachedOneCore", MixCached, 1U)->UseRealTime();
    add("MixCachedTwoCores", MixCached, 2U)->UseRealTime();
    ratios.push_back({"MixCachedTwoCores", "MixCachedOneCore", 1.8, 2});
    return runBenchmarks(argc, argv, ratios);
}
