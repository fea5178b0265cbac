#pragma once

#include <QWidget>

class AbcTextEdit;

// The margin of an AbcTextEdit: line numbers and marks of errors. A click puts the caret on the line,
// one on a mark shows what would fix it.
class LineNumbers : public QWidget
{
    Q_OBJECT

public:
    explicit LineNumbers(AbcTextEdit &text);

    QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    bool event(QEvent *event) override;

private:
    AbcTextEdit &text_;
};
