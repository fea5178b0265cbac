#pragma once

#include <QDialog>
#include <QVector>

class QComboBox;
class QRadioButton;

// Asks whose tempo all parts are to have, and what stays of their notes: when they sound, or how they are written.
class OneTempoDialog : public QDialog
{
    Q_OBJECT

public:
    struct Part
    {
        QString name;
        QString tempo; // for people
    };
    // chosen: by number.
    OneTempoDialog(const QVector<Part> &parts, int chosen, QWidget *parent = nullptr);

    enum class Stays { Moments, WrittenLengths };
    int part() const;
    Stays stays() const;

private:
    QComboBox *part_;
    QRadioButton *moments_;
    QRadioButton *lengths_;
};
