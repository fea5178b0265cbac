#pragma once

#include "core/Ticks.h"

#include <QPoint>

// Where ticks and pitches stand on the canvas of the piano roll. Coordinates are logical pixels from the canvas's top
// left corner, rounded to whole pixels of the screen so that edges stay sharp at every scale. A value.
class RollGeometry
{
public:
    // The rows from bottom to top: whole octaves around the playable range, C0 to B8.
    static constexpr int lowestPitch = 12;
    static constexpr int highestPitch = 119;

    // Two steps of the horizontal scale double the width, one step of the vertical scale adds two pixels to a row.
    static constexpr int lowestHScale = -10;
    static constexpr int highestHScale = 14;
    static constexpr int lowestVScale = -2;
    static constexpr int highestVScale = 12;

    int hScale() const { return hScale_; }
    int vScale() const { return vScale_; }
    void setHScale(int scale); // limited to the range above
    void setVScale(int scale);

    qreal pixelsPerTick() const { return pixelsPerTick_; }
    Ticks ticksIn(qreal pixels) const;
    int rowHeight() const { return 8 + 2 * vScale_; }

    // What of the whole picture stands at the canvas's top left corner.
    QPoint scroll() const { return scroll_; }
    void setScroll(const QPoint &scroll) { scroll_ = scroll; }

    qreal devicePixelRatio() const { return ratio_; }
    void setDevicePixelRatio(qreal ratio)
    {
        ratio_ = ratio;
        hairline_ = 1 / ratio;
    }
    qreal hairline() const { return hairline_; } // one pixel of the screen
    qreal sharp(qreal coordinate) const { return qreal(qRound64(coordinate * ratio_)) * hairline_; }

    // A tick far outside gives a coordinate that is merely far outside.
    qreal x(Ticks tick) const
    {
        return sharp(std::clamp(qreal(tick) * pixelsPerTick_ - scroll_.x(), -farOutside, farOutside));
    }
    // Not below 0.
    Ticks tick(qreal x) const;

    qreal top(int pitch) const { return sharp((highestPitch - pitch) * rowHeight() - scroll_.y()); }
    qreal bottom(int pitch) const { return top(pitch - 1); }
    // Limited to the rows.
    int pitch(qreal y) const;

    // Of the whole picture. Its width is limited to what a scroll bar can count, about a billion pixels.
    int contentHeight() const { return (highestPitch - lowestPitch + 1) * rowHeight(); }
    int contentWidth(Ticks length) const;

private:
    static constexpr qreal farOutside = 1 << 20;

    int hScale_ = 4;
    int vScale_ = 2;
    qreal pixelsPerTick_ = 48.0 / ticksPerQuarter;
    QPoint scroll_;
    qreal ratio_ = 1;
    qreal hairline_ = 1;
};
