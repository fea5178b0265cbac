#pragma once

#include "support/DenseSong.h"

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
