#pragma once

#include "ui/roll/RollNoteBrush.h"
#include "ui/roll/RollState.h"

#include <QFont>
#include <QStaticText>

// Paints the canvas of the piano roll. Keeps the pixmaps and the texts that it paints often.
class RollPainter
{
public:
    // Everything that touches the clip rectangle. The cost grows with what is seen there, not with the track.
    void paint(QPainter &painter, const RollState &state, const RollDrag &drag, const QRect &clip);

    void setFont(const QFont &font);

private:
    void paintRows();
    void hatch(const QRectF &rows);
    void paintGrid();
    void paintSteps(const Measure &measure, Ticks step, const QColor &colour);
    void paintGhosts();
    void paintNotes();
    void paintNote(const RollNote &note, RollNoteBrush::Look look);
    void paintDrag();
    void paintCaretNotes();
    void paintName(const QRectF &rect, int pitch, const QColor &colour);
    void paintLines();
    void verticalLine(Ticks tick, const QColor &colour, qreal width);
    void horizontalLine(qreal y, const QColor &colour);

    QPainter *painter_ = nullptr; // these three while painting
    const RollState *state_ = nullptr;
    const RollDrag *drag_ = nullptr;
    QRectF clip_;
    Ticks from_ = 0; // the ticks that the clip rectangle covers
    Ticks to_ = 0;
    std::array<qreal, 128> tops_{}; // of the rows
    qreal noteHeight_ = 0;

    RollNoteBrush brush_;
    QFont font_;
    std::array<QStaticText, 128> names_;
    quint32 namesKeyRow_ = 0;
};
