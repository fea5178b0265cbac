#pragma once

#include "midi/MidiInput.h"

// Keyboards that a test plugs in, plays and pulls out. The test's own thread is the input's.
class PlayedKeyboard : public MidiInput
{
public:
    struct State
    {
        QStringList ports;
        QString open;
        Receiver receiver;

        void play(std::initializer_list<int> bytes) const
        {
            const std::vector<std::uint8_t> message(bytes.begin(), bytes.end());
            if (receiver)
                receiver(message);
        }
    };

    explicit PlayedKeyboard(State &state) : state_(state) {}
    ~PlayedKeyboard() override { close(); }

    QStringList ports() override { return state_.ports; }
    bool open(const QString &port, Receiver receiver) override
    {
        state_.open = port;
        state_.receiver = std::move(receiver);
        return state_.ports.contains(port);
    }
    void close() override
    {
        state_.open.clear();
        state_.receiver = {};
    }

private:
    State &state_;
};
