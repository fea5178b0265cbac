#pragma once

#include "ui/SpokenWidget.h"

#include <QWidget>

#include <optional>

struct RollState;

// The keys at the left of the piano roll. A key that is pressed with the mouse asks for its sound until it is let go.
class RollKeyboard : public QWidget, public SpokenWidget
{
    Q_OBJECT

public:
    // The state must outlive the widget.
    explicit RollKeyboard(const RollState &state, QWidget *parent = nullptr);

    QAccessible::Role spokenRole() const override { return QAccessible::Graphic; }

    QSize sizeHint() const override;

signals:
    void pressed(int pitch);
    void released();
    void hovered(std::optional<int> pitch);

protected:
    bool event(QEvent *event) override;
    void paintEvent(QPaintEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void mouseMoveEvent(QMouseEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;
    void leaveEvent(QEvent *event) override;
    void hideEvent(QHideEvent *event) override;

private:
    void press(int pitch);
    void release();
    QString describe(int pitch) const;
    void paintWhiteKey(QPainter &painter, int pitch) const;
    void paintBlackKey(QPainter &painter, int pitch) const;
    void paintLabel(QPainter &painter, int pitch) const;
    QColor keyColour(int pitch) const;

    const RollState &state_;
    std::optional<int> pressed_;
};
