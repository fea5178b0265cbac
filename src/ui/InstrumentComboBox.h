#pragma once

#include <QComboBox>

class InstrumentSetModel;

// The choice of an instrument, with its picture. Scrolling with the wheel past it changes nothing until it has the
// focus. On the interface thread.
class InstrumentComboBox : public QComboBox
{
    Q_OBJECT

public:
    explicit InstrumentComboBox(InstrumentSetModel &instruments, QWidget *parent = nullptr);

    // The name of an instrument that the catalogue lacks, shown while none of it is chosen.
    void setMissing(const QString &name);
    QString shownText() const { return currentIndex() < 0 ? missing_ : currentText(); }

protected:
    void paintEvent(QPaintEvent *event) override;
    void wheelEvent(QWheelEvent *event) override;

private:
    QString missing_;
};
