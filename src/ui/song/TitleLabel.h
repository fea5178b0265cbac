#pragma once

#include <QLabel>
#include <QMouseEvent>

// One line of text that is cut short in its middle (the titles of a song's tracks differ at their ends), and that can
// be clicked twice (or entered with F2 or Return).
class TitleLabel : public QLabel
{
    Q_OBJECT

public:
    explicit TitleLabel(QWidget *parent = nullptr);

    QSize minimumSizeHint() const override;

    // Shows a mark behind the title.
    void setMarked(bool isMarked);
    bool isMarked() const { return isMarked_; }

signals:
    void doubleClicked();

protected:
    void paintEvent(QPaintEvent *event) override;
    // The row's, which may be dragged by its title.
    void mousePressEvent(QMouseEvent *event) override { event->ignore(); }
    void mouseMoveEvent(QMouseEvent *event) override { event->ignore(); }
    void mouseReleaseEvent(QMouseEvent *event) override { event->ignore(); }
    void mouseDoubleClickEvent(QMouseEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;

private:
    bool isMarked_ = false;
};
