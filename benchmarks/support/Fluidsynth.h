#pragma once

#include "support/DenseSong.h"

#include <benchmark/benchmark.h>

// fluidsynth with the samples of the dense songs, dry, at 48 kHz: the reference that the mixer is measured against.
class Fluidsynth
{
public:
    explicit Fluidsynth(const DenseSong &song);
    Fluidsynth(const Fluidsynth &) = delete;
    Fluidsynth &operator=(const Fluidsynth &) = delete;
    ~Fluidsynth();

    // Plays the song through, once. Gives the most voices that sounded at a time.
    int render();

private:
    struct Parts;
    Parts *parts_;
};

// The benchmark: ten seconds of a song of so many voices. Items are voice-seconds.
void playDenseSong(benchmark::State &state, int voices);
