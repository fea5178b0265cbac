#pragma once

#include <QStringList>

#include <cstdint>
#include <functional>
#include <memory>
#include <span>

// The MIDI devices of a system, of which one can be listened to. On the interface thread.
class MidiInput
{
public:
    // Called with the bytes of a message on a thread of the input's own.
    using Receiver = std::function<void(std::span<const std::uint8_t> bytes)>;

    virtual ~MidiInput() = default; // closes

    // By their names, what sounds like a keyboard first. None is no error.
    virtual QStringList ports() = 0;
    // Instead of what was open. False when it is not there, or does not let itself be opened.
    virtual bool open(const QString &port, Receiver receiver) = 0;
    // The receiver is not called any more.
    virtual void close() = 0;
};

using MidiInputFactory = std::function<std::unique_ptr<MidiInput>()>;
