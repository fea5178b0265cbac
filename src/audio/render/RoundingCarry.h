#pragma once

#include <cstdint>
#include <span>
#include <vector>

// Rounds the parts of a song to whole numbers of 16 bit one after the other, so that they add up to their mix: what the
// rounding of a part takes or gives is given to the same sample of the next one. Half an hour of song is remembered;
// what is behind it is left to who writes it. [render]
class RoundingCarry
{
public:
    void beginPart() { next_ = 0; }
    // The next samples of the part; valid until the next call.
    std::span<const float> rounded(std::span<const float> samples);

private:
    float round(float sample);

    std::vector<std::int8_t> carried_; // by sample, in parts of a step
    std::size_t next_ = 0;
    std::vector<float> rounded_;
};
