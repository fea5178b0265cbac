#pragma once

#include "audio/TempoMap.h"

#include <vector>

// The tempo that a whole MIDI file is played at. [any]
class MidiTempo
{
public:
    // That of the longest track, within what a file can say: one beat in 16 s to 400000 a minute.
    explicit MidiTempo(const QVector<Track> &tracks);

    struct Change
    {
        Ticks at = 0;
        quint32 microsecondsPerQuarter = 500'000;
    };
    std::vector<Change> changes() const; // the first at 0

    // Where the ticks of a track stand in the file: where they are, or at the same moment when the track has another
    // tempo.
    class Places
    {
    public:
        Places(const Track &track, const Track &file);
        bool areMoved() const { return areMoved_; }
        Ticks of(Ticks tick) const; // to the nearest

    private:
        bool areMoved_;
        TempoMap track_;
        TempoMap file_;
    };
    Places placesOf(const Track &track) const { return {track, file_}; }
    const Track &leader() const { return leader_; } // whose tempo it is

private:
    Track leader_;
    Track file_; // its tempos only
};
