#include "audio/engine/VoiceShape.h"

#include <cmath>

namespace {

constexpr Position one = Position(1) << 32;
constexpr std::uint64_t longestFade = std::uint64_t(1) << 30; // six hours; fits what the kernels count with

} // namespace

AudioResult shapeOf(const VoiceSpec &spec, VoiceShape &shape)
{
    if (!isInRange(spec))
        return AudioResult::InvalidArgument;
    const auto &sound = *spec.sound;
    shape.source = {sound.plane(0), sound.channels() > 1 ? sound.plane(1) : nullptr};
    shape.start = spec.start;
    shape.end = spec.end;
    shape.fadeEnd = spec.end > never - longestFade ? spec.fadeEnd : std::min(spec.fadeEnd, spec.end + longestFade);
    shape.step = Position(std::llround(spec.ratio * double(one)));
    shape.frames = ((std::uint64_t(sound.frames()) << 32) + shape.step - 1) / shape.step;
    shape.gain = spec.gain;
    shape.lateStart = spec.lateStart;
    shape.slope = shape.fadeEnd > shape.end ? spec.gain / float(shape.fadeEnd - shape.end) : 0;
    return AudioResult::Ok;
}

void VoiceShape::enter(DspClock now)
{
    if (start >= now)
        return;
    if (lateStart == LateStart::Moved)
        start = now;
    else
        entered = now;
}

void VoiceShape::fadeFrom(DspClock now, std::uint64_t fadeFrames)
{
    fadeFrames = std::min(fadeFrames, longestFade);
    if (start > now || fadeFrames == 0) {
        fadeEnd = end = now;
        return;
    }
    if (fadeEnd <= now + fadeFrames)
        return;
    gain = gainAt(now);
    end = now;
    fadeEnd = now + fadeFrames;
    slope = gain / float(fadeFrames);
}
