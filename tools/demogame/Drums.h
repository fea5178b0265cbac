#pragma once

#include "Synthesis.h"

// The drum kit: one sound for a key, laid out as every keyboard expects it.

struct Drum
{
    int key;
    const char *name;
    Signal (*strike)(const Note &note);
    double hertz; // what the sound is tuned to, whatever that means for it
    double seconds;
    double peak;
    double pan; // -1 left … 1 right
};

const std::vector<Drum> &drumKit();
Channels renderDrum(const Drum &drum, int rate); // stereo
