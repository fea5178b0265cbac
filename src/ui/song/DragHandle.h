#pragma once

#include <QBasicTimer>
#include <QWidget>

#include <optional>

// What a row of a list is dragged by. It draws a grip and tells where the mouse goes, in global coordinates; what moves
// is the business of whoever listens. A drag begins when the pressed mouse has moved a little, and Esc gives it up.
class DragHandle : public QWidget
{
    Q_OBJECT

public:
    explicit DragHandle(QWidget *parent = nullptr);

    QSize sizeHint() const override { return {10, 24}; }

    void giveUp(); // a drag that is under way

signals:
    void dragged(const QPoint &position); // again and again while the mouse rests, so that a list can scroll under it
    void dropped(const QPoint &position);
    void dragCancelled();

protected:
    bool event(QEvent *event) override;
    void paintEvent(QPaintEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void mouseMoveEvent(QMouseEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void hideEvent(QHideEvent *event) override;
    void timerEvent(QTimerEvent *event) override;

private:
    bool isDragging() const { return repeating_.isActive(); }
    void begin();
    void end();

    std::optional<QPoint> pressedAt_;
    QPoint position_;
    QBasicTimer repeating_;
};
