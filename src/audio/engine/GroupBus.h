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

// The planes that the voices of one group are added to, a block at a time. Mono sounds share a plane of their own,
// which reaches both sides in one step at the end, so that a mono voice costs half a stereo one. [any, mixer]
class GroupBus
{
public:
    static constexpr std::size_t capacity = 1024; // frames; with the scratch planes half of a usual L1 cache

    // A silent block at that clock; frames: at most capacity.
    void begin(DspClock clock, std::size_t frames);
    void add(const VoiceShape &voice);
    // Brings the block behind the level, gliding from one to the other when they differ.
    void applyLevel(SideGains from, SideGains to);
    // Another group's block, behind its level.
    void add(const GroupBus &finished);
    bool silent() const { return !mono_ && !stereo_; } // no voice of the group sounds in the block

    std::size_t frames() const { return frames_; }
    // Behind applyLevel().
    const float *left() const { return left_.data(); }
    const float *right() const { return right_.data(); }
    void interleave(float *stereo) const;

private:
    using Plane = std::array<float, capacity>;
    void prepareStereo();

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
