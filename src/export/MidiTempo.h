#pragma once

#include "audio/TempoPlaces.h"

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

    // Where the ticks of a track stand in the file.
    TempoPlaces placesOf(const Track &track) const { return {track, file_}; }
    const Track &leader() const { return leader_; } // whose tempo it is

private:
    Track leader_;
    Track file_; // its tempos only
};
