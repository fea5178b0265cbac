#pragma once

#include <QDialog>

class QCheckBox;
class QComboBox;
class QSpinBox;

// Asks for a unit length: one of eight, a fraction of one's own, or the one that suits the notes.
class UnitLengthDialog : public QDialog
{
    Q_OBJECT

public:
    explicit UnitLengthDialog(QWidget *parent = nullptr);

    // Begins with the value of an L field. One that is no fraction changes nothing.
    void preset(const QString &unitLength);

    // "auto", or a fraction such as "3/8".
    QString result() const;

public slots:
    void onCustomToggled(bool checked);
    void onAutoDetectToggled(bool checked);

private:
    void enableInputs();

    QComboBox *fixed_;
    QCheckBox *custom_;
    QSpinBox *numerator_;
    QSpinBox *denominator_;
    QCheckBox *autoDetect_;
};
