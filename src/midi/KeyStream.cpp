#include "midi/KeyStream.h"

namespace {

constexpr std::uint8_t noteOff = 0x80, noteOn = 0x90, controller = 0xB0, programChange = 0xC0, pressure = 0xD0;
constexpr std::uint8_t systemMessage = 0xF0, realTime = 0xF8;
constexpr std::uint8_t allSoundOff = 120, allNotesOff = 123;

std::size_t dataBytes(std::uint8_t kind)
{
    return kind == programChange || kind == pressure ? 1 : 2;
}

} // namespace

std::vector<KeyEvent> KeyStream::take(std::span<const std::uint8_t> bytes)
{
    std::vector<KeyEvent> events;
    for (const auto byte : bytes) {
        if (byte >= noteOff) {
            takeStatus(byte);
        } else if (status_ != 0) {
            data_[count_++] = byte;
            if (count_ == dataBytes(status_))
                takeMessage(events);
        }
    }
    return events;
}

std::vector<KeyEvent> KeyStream::end()
{
    std::vector<KeyEvent> events;
    releaseAll(events);
    *this = {};
    return events;
}

// Real time comes between the bytes of others; system messages end the running status.
void KeyStream::takeStatus(std::uint8_t status)
{
    if (status >= realTime)
        return;
    status_ = status >= systemMessage ? std::uint8_t(0) : std::uint8_t(status & 0xF0);
    count_ = 0;
}

void KeyStream::takeMessage(std::vector<KeyEvent> &events)
{
    count_ = 0;
    const auto [first, second] = data_;
    if (status_ == controller && (first == allSoundOff || first == allNotesOff)) {
        releaseAll(events);
    } else if (status_ == noteOn && second > 0) {
        held_.set(first);
        events.push_back({first, second});
    } else if ((status_ == noteOn || status_ == noteOff) && held_.test(first)) {
        held_.reset(first);
        events.push_back({first, 0});
    }
}

void KeyStream::releaseAll(std::vector<KeyEvent> &events)
{
    for (std::size_t pitch = 0; pitch < held_.size(); ++pitch) {
        if (held_.test(pitch))
            events.push_back({std::uint8_t(pitch), 0});
    }
    held_.reset();
}
