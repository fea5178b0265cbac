#include "ui/roll/PianoRollGeometry.h"

#include <cmath>

namespace {

constexpr qreal quarterWidthAtScaleZero = 12;
constexpr qreal widestContent = 1 << 30;

} // namespace

void PianoRollGeometry::setHScale(int scale)
{
    hScale_ = std::clamp(scale, lowestHScale, highestHScale);
    pixelsPerTick_ = quarterWidthAtScaleZero * std::exp2(hScale_ / 2.0) / ticksPerQuarter;
}

void PianoRollGeometry::setVScale(int scale)
{
    vScale_ = std::clamp(scale, lowestVScale, highestVScale);
}

Ticks PianoRollGeometry::ticksIn(qreal pixels) const
{
    return Ticks(std::llround(std::min(pixels / pixelsPerTick_, qreal(maxTicks))));
}

Ticks PianoRollGeometry::tick(qreal x) const
{
    return std::max(Ticks(0), ticksIn(x + scroll_.x()));
}

int PianoRollGeometry::pitch(qreal y) const
{
    const auto row = int(std::floor((y + scroll_.y()) / rowHeight()));
    return std::clamp(highestPitch - row, lowestPitch, highestPitch);
}

int PianoRollGeometry::contentWidth(Ticks length) const
{
    return int(std::min(qreal(length) * pixelsPerTick_, widestContent));
}
