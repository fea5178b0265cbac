#pragma once

#include "audio/engine/GroupBus.h"
#include "audio/engine/GroupMeter.h"
#include "audio/engine/SpscRing.h"

#include <array>
#include <atomic>

constexpr std::size_t mixerBlockFrames = 512;

// Mixes the voices of one output. One thread at a time asks for frames, [mixer]; another one gives commands, [audio].
// They meet in two rings and in atomics only: mix() neither locks nor allocates nor frees. Voices live in numbered
// slots that [audio] hands out; a slot belongs to the mixer from play() until takeFinished() gives it back, and so must
// its sound.
class Mixer
{
public:
    Mixer();

    // False when the command queue is full. [audio]
    bool play(std::uint32_t slot, GroupId group, const VoiceShape &shape);
    bool fadeOut(std::uint32_t slot, std::uint64_t frames);
    bool stopGroup(GroupId group);

    // A slot whose voice has ended; false when there is none. [audio]
    bool takeFinished(std::uint32_t &slot);

    // For a group that is new: its meter starts over. [audio]
    void openGroup(GroupId group);
    void setGains(GroupId group, SideGains gains);
    MeterReading meter(GroupId group);
    DspClock clock() const { return clock_.load(std::memory_order_acquire); } // [any]

    // The next frames, interleaved. [mixer]
    void mix(float *stereo, std::size_t frames);
    // Moves the clock on as if the frames had been mixed. [mixer]
    void skip(std::size_t frames);

private:
    using Slot = std::uint32_t;
    static constexpr Slot none = Slot(maxVoices);

    struct Voice
    {
        VoiceShape shape;
        Slot next = none; // in its group, in the order of play()
        bool active = false;
    };
    struct Group
    {
        std::atomic<std::uint64_t> wanted; // gains, left in the lower half
        SideGains gains;                   // of the last block
        bool sounded = false;              // in the last block: only then a change of level could click
        Slot first = none;
        Slot last = none;
        GroupMeter meter;
    };
    struct Command
    {
        enum class Kind { Play, FadeOut, StopGroup } kind = Kind::Play;
        Slot slot = none;
        GroupId group{};
        std::uint64_t frames = 0;
        VoiceShape shape;
    };

    void obey(const Command &command);
    void append(const Command &command);
    void mixBlock(float *stereo, std::size_t frames);
    void mixGroup(Group &group, std::size_t frames);
    void addVoices(Group &group, GroupBus &bus);
    void dropFinished(Group &group, DspClock next);
    // The gains at the beginning and at the end of the block.
    std::pair<SideGains, SideGains> nextGains(Group &group, const GroupBus &bus);

    std::atomic<DspClock> clock_{0};
    std::atomic<std::size_t> groupsInUse_{1}; // all groups at and above it were never opened
    DspClock now_ = 0;                        // the mixer's own copy of the clock
    std::array<Voice, maxVoices> voices_;
    std::array<Group, maxGroups> groups_;
    GroupBus masterBus_;
    GroupBus groupBus_;
    SpscRing<Command, 2 * maxVoices> commands_;
    SpscRing<Slot, 2 * maxVoices> finished_; // holds every voice, so it is never full
};
