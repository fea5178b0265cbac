#pragma once

#include <QByteArray>

#include <vector>

// A made-up song in which a given number of voices sounds at any time, 16 of them or more to a track. Its times are
// milliseconds, and a tick of its MIDI file is one too.
struct DenseSong
{
    static constexpr int mostTracks = 16; // a MIDI file has no more channels
    static constexpr int leastVoicesPerTrack = 16;
    static constexpr int instruments = 8; // track n plays instrument n % 8
    static constexpr int lowestKey = 36, highestKey = 99;
    static constexpr int keysPerSample = 4;
    static constexpr int fade = 50;

    struct Note
    {
        int track;
        int key;
        int start;
        int length; // without the fade

        int instrument() const { return track % instruments; }
    };

    // Each voice plays one note after the other, on keys of its own, since a synthesizer ends a note whose key is
    // struck again.
    DenseSong(int voices, int seconds);

    QByteArray midi() const;

    int seconds;
    int tracks;
    std::vector<Note> notes; // by start
    double voiceSeconds = 0; // fades included
};

// The samples of the song's instruments: two seconds of a tone that dies away, and some noise, at every fourth key.
struct DenseSamples
{
    static constexpr int sampleRate = 44100;
    static int indexOf(int instrument, int key);
    static int rootOf(int key);

    static const std::vector<std::vector<short>> &get();
};
