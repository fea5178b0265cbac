#pragma once

#include <QDial>

#include <functional>

// A small knob with its value written below. Turned by dragging up or down, the arrow keys, and the wheel once it has
// the focus; a double click or Backspace brings the neutral value back. On the interface thread.
class ValueDial : public QDial
{
    Q_OBJECT

public:
    // One place in the range may hold the knob while it is dragged past.
    enum class Detent { None, AtNeutral };
    using Text = std::function<QString(int value)>;

    ValueDial(int minimum, int maximum, int neutral, Detent detent, Text text, QWidget *parent = nullptr);

    QString valueText() const { return text_(value()); }

    QSize sizeHint() const override { return {40, 50}; }
    QSize minimumSizeHint() const override { return sizeHint(); }

protected:
    void paintEvent(QPaintEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void mouseMoveEvent(QMouseEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;
    void mouseDoubleClickEvent(QMouseEvent *event) override;
    void wheelEvent(QWheelEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void sliderChange(SliderChange change) override;

private:
    double angle(int value) const; // degrees clockwise from the top

    int neutral_;
    Detent detent_;
    Text text_;
    QPoint pressedAt_;
    int pressedValue_ = 0;
};
