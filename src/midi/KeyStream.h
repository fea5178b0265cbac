#pragma once

#include <array>
#include <bitset>
#include <cstdint>
#include <span>
#include <vector>

// A key of a keyboard went down, or up.
struct KeyEvent
{
    std::uint8_t pitch = 0;    // MIDI note number, 0 to 127
    std::uint8_t velocity = 0; // 1 to 127; 0: let go

    bool isPress() const { return velocity > 0; }
    bool operator==(const KeyEvent &) const = default;
};

// Finds the keys in what a MIDI device sends (MIDI 1.0, running status and real-time messages in between included),
// whatever the bytes are and however they are cut. A key is let go only after it was pressed. On any one thread.
class KeyStream
{
public:
    std::vector<KeyEvent> take(std::span<const std::uint8_t> bytes);
    // Lets go of all keys, and begins anew.
    std::vector<KeyEvent> end();

private:
    void takeStatus(std::uint8_t status);
    void takeMessage(std::vector<KeyEvent> &events);
    void releaseAll(std::vector<KeyEvent> &events);

    std::uint8_t status_ = 0; // of the messages to come; 0: one that is not looked at
    std::array<std::uint8_t, 2> data_{};
    std::size_t count_ = 0; // of the data bytes that are there
    std::bitset<128> held_;
};
