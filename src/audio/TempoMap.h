#pragma once

#include "core/Track.h"

#include <QVector>

// Converts between the ticks of a track and output samples counted from the track's start. Samples are computed in
// double precision and truncated, in one fixed order of operations, so that every build places a note on the same
// sample. Neither direction ever goes down as its argument goes up. [any]
class TempoMap
{
public:
    TempoMap() = default;

    // The tempo at the track's start and its Tempo events, all of them times the factor (above 0). A tempo of 0 or less
    // leaves the one before it in force, at the start the default one. The events must be normalised. [any]
    TempoMap(const Track &track, int sampleRate, double factor = 1);

    // Limited to maxSamples, for a tick that no one can wait for. [any]
    quint64 samplesAt(Ticks tick) const;

    // The tick that sounds at the sample, limited to maxTicks. [any]
    Ticks tickAt(quint64 samples) const;

    static constexpr quint64 maxSamples = quint64(1) << 62;

private:
    struct Segment
    {
        Ticks startTick = 0;
        quint64 startSamples = 0;
        double samplesPerTick = 0;

        quint64 samplesAt(Ticks tick) const;
    };

    QVector<Segment> segments_; // ascending; the first starts at tick 0. Empty in a map without a track.
};
