#include "support/Fluidsynth.h"

#include <algorithm>
#include <cmath>
#include <fluidsynth.h>

namespace {

// Program n of bank 0 is instrument n.
struct Program
{
    const std::vector<fluid_sample_t *> *samples = nullptr;
    int number = 0;
};

int startVoice(fluid_preset_t *preset, fluid_synth_t *synth, int channel, int key, int velocity)
{
    const auto &program = *static_cast<const Program *>(fluid_preset_get_data(preset));
    auto *sample = (*program.samples)[std::size_t(DenseSamples::indexOf(program.number, key))];
    fluid_sample_set_pitch(sample, DenseSamples::rootOf(key), 0);
    auto *voice = fluid_synth_alloc_voice(synth, sample, channel, key, velocity);
    if (voice == nullptr)
        return FLUID_FAILED;
    fluid_voice_gen_set(voice, GEN_SAMPLEMODE, 0);
    fluid_voice_gen_set(voice, GEN_VOLENVRELEASE, float(1200 * std::log2(DenseSong::fade / 1000.0)));
    fluid_synth_start_voice(synth, voice);
    return FLUID_OK;
}

fluid_preset_t *makePreset(fluid_sfont_t *font, int, int program)
{
    auto *preset = new_fluid_preset(
        font, [](fluid_preset_t *) { return "instrument"; }, [](fluid_preset_t *) { return 0; },
        [](fluid_preset_t *) { return 0; }, startVoice, delete_fluid_preset);
    auto *programs = static_cast<Program *>(fluid_sfont_get_data(font));
    fluid_preset_set_data(preset, &programs[program % DenseSong::instruments]);
    return preset;
}

} // namespace

struct Fluidsynth::Parts
{
    QByteArray midi;
    std::vector<fluid_sample_t *> samples;
    Program programs[DenseSong::instruments];
    fluid_settings_t *settings = new_fluid_settings();
    fluid_synth_t *synth = nullptr;
    fluid_player_t *player = nullptr;
};

Fluidsynth::Fluidsynth(const DenseSong &song) : parts_(new Parts)
{
    parts_->midi = song.midi();
    for (const auto &values : DenseSamples::get()) {
        auto *sample = new_fluid_sample();
        fluid_sample_set_sound_data(sample, const_cast<short *>(values.data()), nullptr, unsigned(values.size()),
                                    DenseSamples::sampleRate, 0);
        parts_->samples.push_back(sample);
    }
    for (int number = 0; number < DenseSong::instruments; ++number)
        parts_->programs[number] = {&parts_->samples, number};

    fluid_settings_setint(parts_->settings, "synth.reverb.active", 0);
    fluid_settings_setint(parts_->settings, "synth.chorus.active", 0);
    fluid_settings_setint(parts_->settings, "synth.polyphony", 4096);
    fluid_settings_setnum(parts_->settings, "synth.sample-rate", 48000);
    fluid_settings_setstr(parts_->settings, "player.timing-source", "sample");
    parts_->synth = new_fluid_synth(parts_->settings);
    auto *font = new_fluid_sfont([](fluid_sfont_t *) { return "samples"; }, makePreset, nullptr, nullptr,
                                 [](fluid_sfont_t *released) { return delete_fluid_sfont(released); });
    fluid_sfont_set_data(font, parts_->programs);
    fluid_synth_add_sfont(parts_->synth, font);
    parts_->player = new_fluid_player(parts_->synth);
    fluid_player_add_mem(parts_->player, parts_->midi.constData(), std::size_t(parts_->midi.size()));
}

Fluidsynth::~Fluidsynth()
{
    delete_fluid_player(parts_->player);
    delete_fluid_synth(parts_->synth);
    delete_fluid_settings(parts_->settings);
    for (auto *sample : parts_->samples)
        delete_fluid_sample(sample);
    delete parts_;
}

int Fluidsynth::render()
{
    constexpr int block = 512;
    float left[block], right[block];
    int most = 0;
    fluid_player_play(parts_->player);
    while (fluid_player_get_status(parts_->player) == FLUID_PLAYER_PLAYING) {
        fluid_synth_write_float(parts_->synth, block, left, 0, 1, right, 0, 1);
        most = std::max(most, fluid_synth_get_active_voice_count(parts_->synth));
    }
    return most;
}

void playDenseSong(benchmark::State &state, int voices)
{
    const DenseSong song(voices, 10);
    for (auto _ : state) {
        state.PauseTiming();
        {
            Fluidsynth synth(song);
            state.ResumeTiming();
            state.counters["voices"] = synth.render();
            state.PauseTiming();
        }
        state.ResumeTiming();
    }
    state.SetItemsProcessed(int64_t(double(state.iterations()) * song.voiceSeconds));
}
