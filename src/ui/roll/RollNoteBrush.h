#pragma once

#include "ui/roll/RollColours.h"

#include <QPainter>
#include <QPixmap>

#include <array>

// Paints many notes fast: rounded ends come from pixmaps that are made once for a height and a scale, and what is too
// small for them is a plain rectangle, joined with its neighbours in the row where no gap would show.
class RollNoteBrush
{
public:
    enum class Look { Plain, Faded, Selected, Sounding, Ghost };

    // Forgets its pixmaps when anything about them changes.
    void prepare(const RollColours &colours, qreal height, qreal devicePixelRatio);

    // Between begin() and end() on one painter: notes from left to right.
    void begin(QPainter &painter) { painter_ = &painter; }
    void paint(const QRectF &rect, int pitch, Look look);
    void end();

    const RollColours::Note &colours(Look look) const { return looks_[size_t(look)].colours; }

private:
    struct Ends
    {
        RollColours::Note colours;
        QPixmap left;
        QPixmap right;
    };

    // A rectangle that the next note of the row may still lengthen.
    struct Pending
    {
        QRectF rect;
        Look look = Look::Plain;
    };

    void makeEnds(Ends &ends) const;
    void paintRounded(const QRectF &rect, const Ends &ends);
    void paintFlat(const QRectF &rect, int pitch, Look look);
    void flush(Pending &pending);

    QPainter *painter_ = nullptr;
    std::array<Ends, 5> looks_;
    std::array<Pending, 128> pending_;
    qreal height_ = 0;
    qreal ratio_ = 0;
    qreal pixel_ = 1; // of the screen, in logical pixels
    qreal line_ = 1;  // edge
    qreal end_ = 3;   // width of a rounded end
};
