#pragma once

#include "app/services/Rehearsal.h"
#include "song/SongTrack.h"

#include <QDialog>
#include <QStringList>

class QRadioButton;
class QSpinBox;
class QTableWidget;

// By how much each part of a band comes in later or sooner than it should. [ui]
class RehearsalDialog : public QDialog
{
    Q_OBJECT

public:
    RehearsalDialog(const Rehearsal &rehearsal, const SongTracks &song, QWidget *parent = nullptr);

    // What is chosen; switched on, since somebody wants to hear it.
    Rehearsal rehearsal() const;

private:
    void fillParts(const SongTracks &song);
    void showChoice();
    void throwDice();

    Rehearsal rehearsal_;
    QRadioButton *diced_;
    QRadioButton *typed_;
    QSpinBox *spread_;
    QTableWidget *parts_;
    QStringList ids_; // of its rows
};
