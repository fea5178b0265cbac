#pragma once

#include <QDialog>

class QSpinBox;

// Asks by how many semitones, -48 to 48, the notes are to move.
class TransposeDialog : public QDialog
{
    Q_OBJECT

public:
    explicit TransposeDialog(QWidget *parent = nullptr);

    int semitones() const;

private:
    QSpinBox *semitones_;
};
