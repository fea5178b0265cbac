#pragma once

#include <QPainter>
#include <QWidget>

#include <cmath>

// Paints on a widget whose corner, at a fractional scale, may stand between two pixels of the screen: the origin is the
// nearest whole pixel, so that what is rounded to pixels in the widget's own coordinates is sharp, and stays as it is
// when it is scrolled by whole pixels.
class SharpPainter : public QPainter
{
public:
    explicit SharpPainter(QWidget *widget) : QPainter(widget)
    {
        const auto ratio = widget->devicePixelRatioF();
        const auto corner = deviceTransform().map(QPointF());
        translate(QPointF(std::round(corner.x()) - corner.x(), std::round(corner.y()) - corner.y()) / ratio);
#if QT_VERSION >= QT_VERSION_CHECK(6, 4, 0)
        setRenderHint(NonCosmeticBrushPatterns); // as Qt 5 does: a pattern is part of the picture, and scrolls with it
#endif
    }
};
