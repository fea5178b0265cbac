#include "support/DenseSong.h"

#include "support/MidiBytes.h"

#include <algorithm>
#include <cmath>
#include <numbers>
#include <random>

DenseSong::DenseSong(int voices, int songSeconds)
    : seconds(songSeconds), tracks(std::clamp(voices / leastVoicesPerTrack, 1, mostTracks))
{
    std::minstd_rand random(2);
    const int voicesPerTrack = voices / tracks;
    const int keys = std::max(32, voicesPerTrack); // two octaves and a half, as far as that goes
    const int keysPerVoice = keys / voicesPerTrack;
    for (int voice = 0; voice < voices; ++voice) {
        for (int at = int(random() % 100); at < 1000 * seconds;) {
            const int length = 150 + int(random() % 850);
            const int key = lowestKey + voice / tracks + voicesPerTrack * int(random() % keysPerVoice);
            notes.push_back({voice % tracks, key, at, length});
            voiceSeconds += double(length + fade) / 1000;
            at += length + fade;
        }
    }
    std::stable_sort(notes.begin(), notes.end(), [](const Note &a, const Note &b) { return a.start < b.start; });
}

QByteArray DenseSong::midi() const
{
    struct Event
    {
        int time;
        bool isOn;
        Note note;
    };
    std::vector<Event> events;
    for (const auto &note : notes) {
        events.push_back({note.start, true, note});
        events.push_back({note.start + note.length, false, note});
    }
    std::stable_sort(events.begin(), events.end(), [](const Event &a, const Event &b) { return a.time < b.time; });
    auto track = MidiBytes::tempo(0, 500000);
    for (int channel = 0; channel < tracks; ++channel)
        track += MidiBytes::midiEvent(0, {0xC0 | channel, channel});
    int time = 0;
    for (const auto &event : events) {
        track += event.isOn ? MidiBytes::noteOn(event.time - time, event.note.key, 100, event.note.track)
                            : MidiBytes::noteOff(event.time - time, event.note.key, event.note.track);
        time = event.time;
    }
    constexpr int ticksPerQuarter = 500;
    return "MThd" + MidiBytes::bigEndian(6, 4) + MidiBytes::bytes({0, 0, 0, 1}) +
           MidiBytes::bigEndian(ticksPerQuarter, 2) + MidiBytes::chunk(track + MidiBytes::endOfTrack());
}

int DenseSamples::rootOf(int key)
{
    return key - (key - DenseSong::lowestKey) % DenseSong::keysPerSample;
}

int DenseSamples::indexOf(int instrument, int key)
{
    constexpr int samples = (DenseSong::highestKey - DenseSong::lowestKey) / DenseSong::keysPerSample + 1;
    return instrument * samples + (key - DenseSong::lowestKey) / DenseSong::keysPerSample;
}

const std::vector<std::vector<short>> &DenseSamples::get()
{
    static const auto samples = [] {
        std::vector<std::vector<short>> all;
        std::minstd_rand random(1);
        for (int instrument = 0; instrument < DenseSong::instruments; ++instrument) {
            for (int root = DenseSong::lowestKey; root <= DenseSong::highestKey; root += DenseSong::keysPerSample) {
                const double step = 2 * std::numbers::pi * 440 * std::exp2((root - 69) / 12.0) / sampleRate;
                auto &values = all.emplace_back();
                for (int i = 0; i < 2 * sampleRate; ++i) {
                    const double wave = std::sin(step * i) + double(random() % 100) / 1000;
                    values.push_back(short(8000 * wave * std::exp(-2.0 * i / sampleRate)));
                }
            }
        }
        return all;
    }();
    return samples;
}
