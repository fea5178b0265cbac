#pragma once

#include "core/Measures.h"
#include "ui/SpokenWidget.h"
#include "ui/timeline/TimeSpan.h"

#include <QWidget>

#include <optional>

class QPainter;

// The strip above the overviews of a song: measures, beats, tempo and metre changes over the time that they share, and
// the playing position. A click or a drag asks for another position; a drag in its upper half for a loop, and one at an
// end of the loop moves that. On the interface thread.
class TimeRuler : public QWidget, public SpokenWidget
{
    Q_OBJECT

public:
    explicit TimeRuler(QWidget *parent = nullptr);

    void setMeasures(const Measures &measures);
    const TimeSpan &span() const { return span_; }
    void setSpan(const TimeSpan &span);
    Ticks position() const { return position_; }
    void setPosition(Ticks position);

    const std::optional<TimeSpan> &loop() const { return loop_; }
    void setLoop(const std::optional<TimeSpan> &loop);

    // The beat next to a place in logical pixels; where beats stand close, the measure.
    Ticks nearestTick(int x) const;
    Ticks tickAt(int x) const { return span_.tickAt(x, width()); }

    QAccessible::Role spokenRole() const override { return QAccessible::Slider; }
    QString spokenValue() const override;
    std::optional<Range> spokenRange() const override;
    void setSpokenValue(double measure) override;

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override { return {80, sizeHint().height()}; }

signals:
    void seek(qint64 ticks); // to a beat; with Alt to where the mouse is
    void loopChosen(const TimeSpan &loop);

protected:
    void paintEvent(QPaintEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void mouseMoveEvent(QMouseEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;

private:
    int lineHeight() const;
    double x(Ticks tick) const; // on a pixel of the screen
    double hairline() const { return 1 / devicePixelRatioF(); }
    Ticks ticksIn(double pixels) const { return span_.ticksIn(pixels, width()); }
    Ticks picked(const QMouseEvent &event) const;
    Ticks loopAnchor(const QMouseEvent &event) const;
    const std::optional<TimeSpan> &shownLoop() const { return draggedLoop_ ? draggedLoop_ : loop_; }
    void paintLoop(QPainter &painter) const;
    void updatePointer();
    void paintTick(QPainter &painter, Ticks tick, double length) const;
    void paintBeats(QPainter &painter, const Measure &measure, Ticks to) const;
    void paintNumber(QPainter &painter, const Measure &measure) const;
    void paintPointer(QPainter &painter) const;

    Measures measures_;
    TimeSpan span_;
    Ticks position_ = 0;
    std::optional<TimeSpan> loop_;
    std::optional<TimeSpan> draggedLoop_; // as it would be
    std::optional<Ticks> anchor_;         // where the dragged loop stays
    QPoint pressedAt_;
};
