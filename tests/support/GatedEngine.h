#pragma once

#include "audio/engine/BuiltinEngine.h"

#include <atomic>
#include <memory>

// An engine whose samples take as long to decode as the test likes.
class GatedEngine : public BuiltinEngine
{
public:
    using Gate = std::shared_ptr<std::atomic<bool>>; // open: samples are decoded; shut: they wait

    static Gate makeGate(bool isOpen) { return std::make_shared<std::atomic<bool>>(isOpen); }

    GatedEngine(EngineOutput output, Gate gate, std::filesystem::path file = {})
        : BuiltinEngine(output, std::move(file)), gate_(std::move(gate))
    {
    }

    GatedEngine(HeardOutput output, Gate gate) : BuiltinEngine(output), gate_(std::move(gate)) {}

    AudioResult makeSound(std::span<const std::byte> bytes, std::size_t mostFrames, Sound &sound) const override
    {
        gate_->wait(false);
        return BuiltinEngine::makeSound(bytes, mostFrames, sound);
    }

    static void open(const Gate &gate)
    {
        *gate = true;
        gate->notify_all();
    }

private:
    Gate gate_;
};
