#pragma once

#include <QColor>
#include <QFrame>
#include <QPainter>

// A patch of one colour.
class ColourSwatch : public QFrame
{
public:
    explicit ColourSwatch(QWidget *parent = nullptr) : QFrame(parent)
    {
        setFrameShape(QFrame::StyledPanel);
        setFrameShadow(QFrame::Sunken);
        setFixedSize(48, 24);
    }

    QColor colour() const { return colour_; }
    void setColour(const QColor &colour)
    {
        colour_ = colour;
        update();
    }

protected:
    void paintEvent(QPaintEvent *event) override
    {
        QPainter(this).fillRect(contentsRect(), colour_);
        QFrame::paintEvent(event);
    }

private:
    QColor colour_;
};
