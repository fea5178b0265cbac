#include "ui/roll/RollGeometry.h"

#include <cmath>

namespace {

constexpr qreal quarterWidthAtScaleZero = 12;
constexpr qreal widestContent = 1 << 30;

} // namespace

void RollGeometry::setHScale(int scale)
{
    hScale_ = std::clamp(scale, lowestHScale, highestHScale);
    pixelsPerTick_ = quarterWidthAtScaleZero * std::exp2(hScale_ / 2.0) / ticksPerQuarter;
}

void RollGeometry::setVScale(int scale)
{
    vScale_ = std::clamp(scale, lowestVScale, highestVScale);
}

Ticks RollGeometry::ticksIn(qreal pixels) const
{
    return Ticks(std::llround(std::min(pixels / pixelsPerTick_, qreal(maxTicks))));
}

Ticks RollGeometry::tick(qreal x) const
{
    return std::max(Ticks(0), ticksIn(x + scroll_.x()));
}

int RollGeometry::pitch(qreal y) const
{
    const auto row = int(std::floor((y + scroll_.y()) / rowHeight()));
    return std::clamp(highestPitch - row, lowestPitch, highestPitch);
}

int RollGeometry::contentWidth(Ticks length) const
{
    return int(std::min(qreal(length) * pixelsPerTick_, widestContent));
}
