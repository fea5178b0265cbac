#pragma once

#include "assets/InstrumentSet.h"
#include "assets/ProgramInstruments.h"

#include <QWidget>

class QComboBox;
class QPushButton;
class QTreeWidget;

// The instruments that are remembered for programs of MIDI: one can be changed, and several be forgotten.
class ProgramsPage : public QWidget
{
    Q_OBJECT

public:
    ProgramsPage(const ProgramInstruments &programs, const InstrumentSet &instruments, QWidget *parent = nullptr);

signals:
    void changed(const QString &text); // of ProgramInstruments

private:
    void fill();
    QVector<int> chosen() const;
    void showChoice();
    void change(const QString &instrument);

    ProgramInstruments programs_;
    QTreeWidget *list_;
    QComboBox *instrument_;
    QPushButton *forget_;
};
