#pragma once

#include "SampleFile.h"

#include <QString>

// The instruments that play tunes: what each is called, how it is rendered, and which of its notes are sampled.
struct MelodicInstrument
{
    const char *name; // as players see it
    const char *kind; // as its files are named
    const char *description;
    Channels (*render)(const Note &note);
    int lowest, highest, step; // MIDI note numbers; the notes between the steps borrow a neighbour's sample
    double seconds;            // the longest that a sample lasts
    double level;              // gain after rendering, so that the instruments balance and a full band does not clip
    double fadeout;            // seconds
    SampleFormat format = SampleFormat::Vorbis;
    int rate = 48000;
    int takes = 1; // different samples of each note
};

// Throws a QString for a kind that is none.
const MelodicInstrument &melodicInstrument(const QString &kind);
