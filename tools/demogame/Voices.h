#pragma once

#include "Synthesis.h"

// The melodic instruments. Each renders one note, finished: shaped at both ends, its loudest peak at -3 dB.

Channels accordion(const Note &note);
Channels bass(const Note &note);
Channels bells(const Note &note);
Channels choir(const Note &note); // stereo, the others are mono
Channels fiddle(const Note &note);
Channels flute(const Note &note);
Channels harp(const Note &note);
Channels lute(const Note &note);
Channels marimba(const Note &note);
Channels musicBox(const Note &note);
Channels oboe(const Note &note);
Channels organ(const Note &note);
Channels panpipes(const Note &note);
