#pragma once

#include "audio/engine/VoiceShape.h"

#include <array>

// What a group's level does to its two sides.
struct SideGains
{
    float left = 1;
    float right = 1;
    bool operator==(const SideGains &) const = default;
};

SideGains sideGains(GroupLevel level);

struct BlockLevels
{
    double leftEnergy = 0; // sum of squares
    double rightEnergy = 0;
    float leftPeak = 0;
    float rightPeak = 0;
};

// The planes that the voices of one group are added to, a block at a time. Mono sounds share a plane of their own,
// which reaches both sides in one step at the end, so that a mono voice costs half a stereo one. [any, mixer]
class GroupBus
{
public:
    static constexpr std::size_t capacity =
        2048; // frames; what mono sounds need of the planes still fits a usual L1 cache

    // A silent block at that clock; frames: at most capacity.
    void begin(DspClock clock, std::size_t frames);
    // Lets the processor fetch what add() will read of the voice, while another one is being added.
    void prefetch(const VoiceShape &voice) const;
    void add(const VoiceShape &voice);
    bool silent() const { return !mono_ && !stereo_; } // nothing was added to the block
    std::size_t frames() const { return frames_; }

    // The stereo planes, for other groups' blocks to be added to.
    Planes<float> sides();
    // Adds the block with its level, which glides over the block when both differ.
    void mixInto(Planes<float> to, SideGains first, SideGains last) const;
    // The last steps of a block, after mixInto(): its loudness with a level, and its samples, interleaved, with a
    // level.
    BlockLevels measure(SideGains gains);
    void output(float *stereo, SideGains first, SideGains last);

private:
    using Plane = std::array<float, capacity>;
    Planes<const float> risen(Planes<const float> source, std::size_t frames, DspClock risenFrames);
    void foldMono();

    const Kernels &kernels_ = bestKernels();
    DspClock clock_ = 0;
    std::size_t frames_ = 0;
    bool mono_ = false;   // monoPlane_ holds something
    bool stereo_ = false; // left_ and right_ hold something
    alignas(64) Plane monoPlane_;
    alignas(64) Plane left_;
    alignas(64) Plane right_;
    alignas(64) Plane scratchLeft_; // a voice behind its interpolation
    alignas(64) Plane scratchRight_;
};
