#pragma once

#include <QEvent>
#include <QPaintEvent>
#include <QWidget>

// Counts how often a widget is painted, and keeps the area.
class PaintCounter : public QObject
{
public:
    explicit PaintCounter(QWidget *widget) { widget->installEventFilter(this); }

    int count() const { return count_; }
    QRect area() const { return area_; }
    void clear()
    {
        count_ = 0;
        area_ = {};
    }

protected:
    bool eventFilter(QObject *, QEvent *event) override
    {
        if (event->type() == QEvent::Paint) {
            ++count_;
            area_ |= static_cast<QPaintEvent *>(event)->rect();
        }
        return false;
    }

private:
    int count_ = 0;
    QRect area_;
};
