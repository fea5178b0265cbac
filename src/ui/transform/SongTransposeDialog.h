#pragma once

#include "core/Track.h"
#include "import/Transpose.h"

#include <QDialog>
#include <QVector>

class QCheckBox;
class QComboBox;
class QLabel;
class QSpinBox;

// Asks by how many semitones a whole song is to move, and says how many notes would leave the range.
class SongTransposeDialog : public QDialog
{
    Q_OBJECT

public:
    struct Part
    {
        Track track;
        bool isPercussion = false;
    };
    explicit SongTransposeDialog(const QVector<Part> &parts, QWidget *parent = nullptr);

    int semitones() const;
    BeyondRange beyond() const;
    bool movesPercussion() const;

private:
    void showLoss();

    QVector<Part> parts_;
    QSpinBox *semitones_;
    QComboBox *beyond_;
    QCheckBox *percussion_;
    QLabel *loss_;
};
