#pragma once

#include "core/Ticks.h"
#include "ui/SpokenWidget.h"

#include <QWidget>

struct Measure;
struct RollState;

// The strip above the piano roll: measure numbers, beats, tempo and metre changes, the edit cursor and the playing
// position, and dots where something is wrong. A click or a drag sets the cursor, a double click asks to play from
// there.
class RollRuler : public QWidget, public SpokenWidget
{
    Q_OBJECT

public:
    // The state must outlive the widget.
    explicit RollRuler(const RollState &state, QWidget *parent = nullptr);

    QAccessible::Role spokenRole() const override { return QAccessible::Slider; }
    QString spokenValue() const override; // where the cursor is
    std::optional<Range> spokenRange() const override;
    void setSpokenValue(double measure) override;

    QSize sizeHint() const override;

    // Repaints what stands at a tick.
    void updateMark(Ticks tick);

    // What is wrong at a place; empty where nothing is.
    QString problemsAt(int x) const;

signals:
    void cursorPicked(Ticks tick); // snapped
    void playRequested(Ticks tick);

protected:
    bool event(QEvent *event) override;
    void paintEvent(QPaintEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void mouseMoveEvent(QMouseEvent *event) override;
    void mouseDoubleClickEvent(QMouseEvent *event) override;

private:
    void pick(const QMouseEvent &event);
    int lineHeight() const;
    void paintTick(QPainter &painter, Ticks tick, qreal length) const;
    void paintBeats(QPainter &painter, const Measure &measure, Ticks to) const;
    void paintNumber(QPainter &painter, const Measure &measure) const;
    void paintMarks(QPainter &painter, int right) const;
    void paintFindings(QPainter &painter) const;
    void paintPointer(QPainter &painter, Ticks tick, const QColor &colour) const;

    const RollState &state_;
};
