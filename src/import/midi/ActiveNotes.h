#pragma once

#include <QtGlobal>

#include <array>
#include <bit>

// The notes of one MIDI channel that are switched on and not yet off, by sounding pitch: the key plus the bend in
// force.
class ActiveNotes
{
public:
    struct Note // without initial values: most of the notes are never used
    {
        quint64 start; // file ticks, as is the next
        quint8 velocity;
        quint32 strikes;  // how often its key was struck without being released
        quint64 released; // when its key was released, though struck more often; 0 when it was not
        bool isHeldByPedal;
    };

    // Keys are bytes and bends reach from -255 to 765 semitones, so no pitch lies outside.
    static constexpr int lowestPitch = -256;
    static constexpr int pitchCount = 1280;

    Note *find(int pitch) { return isActive(pitch) ? &note(pitch) : nullptr; }

    void set(int pitch, const Note &value)
    {
        word(pitch) |= bit(pitch);
        note(pitch) = value;
    }

    void remove(int pitch) { word(pitch) &= ~bit(pitch); }

    void clear() { active_.fill(0); }

    // Calls visit(pitch, note) in ascending order of pitch; it may remove the note that it is given.
    template<typename Visit>
    void forEach(Visit visit)
    {
        for (size_t i = 0; i < active_.size(); ++i) {
            for (auto bits = active_[i]; bits != 0; bits &= bits - 1) {
                const int pitch = lowestPitch + int(i) * 64 + std::countr_zero(bits);
                visit(pitch, note(pitch));
            }
        }
    }

private:
    static size_t index(int pitch) { return size_t(pitch - lowestPitch); }
    static quint64 bit(int pitch) { return quint64(1) << (index(pitch) % 64); }
    bool isActive(int pitch) { return (word(pitch) & bit(pitch)) != 0; }
    quint64 &word(int pitch) { return active_[index(pitch) / 64]; }
    Note &note(int pitch) { return notes_[index(pitch)]; }

    std::array<quint64, pitchCount / 64> active_{};
    std::array<Note, pitchCount> notes_; // only those that are active are ever read
};
