#pragma once

#include "settings/Settings.h"

#include <QGroupBox>

class MidiKeyboard;
class QComboBox;
class QLabel;

// Which MIDI keyboard is played on.
class KeyboardGroup : public QGroupBox
{
    Q_OBJECT

public:
    // Shows what is in the settings; the keyboard outlives it.
    KeyboardGroup(const Settings &settings, const MidiKeyboard &keyboard, QWidget *parent = nullptr);

signals:
    void changed(Settings::Setting setting, const QVariant &value);

private:
    void listPorts(const QString &chosen);
    void listGrids(int chosen);
    void showState();

    const MidiKeyboard &keyboard_;
    QComboBox *port_;
    QComboBox *grid_;
    QLabel *state_;
};
